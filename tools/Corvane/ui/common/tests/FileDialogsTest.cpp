#include "DiskFileSystem.h"
#include "FileFilter.h"
#include "NextDialog.h"
#include "QtFileDialogs.h"
#include "ScratchDir.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <gtest/gtest.h>

TEST(FileDialogs, FiltersTakeTheFormOfTheToolkit)
{
    std::u16string filter;
    BuildFileFilter(filter, {28, 25, 0});
    const QStringList filters = MakeNameFilters(filter + u"Odd (*.x)||Cut");
    ASSERT_EQ(filters.size(), 3);
    EXPECT_EQ(filters[0], QStringLiteral("Game Database Dependency Files (*.Gamdb00dc *.Gamdb00da)"));
    EXPECT_TRUE(filters[1].startsWith(QStringLiteral("All Supported Files (*.Model00a *.Model00c ")));
    EXPECT_EQ(filters[2], QStringLiteral("All Files (*)"));
}

TEST(FileDialogs, ASavedFileGetsItsExtensionAndACancelGivesNothing)
{
    const CScratchDir scratch;
    CDiskFileSystem files;
    CQtFileDialogs dialogs(files);
    const auto answer = [&](int result)
    {
        const CNextDialog user(
            [result](QDialog& window)
            {
                EXPECT_EQ(window.findChild<QLineEdit*>()->text(), QStringLiteral("old"));
                result == QDialog::Accepted ? window.accept() : window.reject();
            });
        return dialogs.SaveFile(nullptr,
                                {u"Save", scratch.Text("old"), u"txt", u"Text Files (*.txt)|*.txt|"});
    };
    EXPECT_EQ(answer(QDialog::Accepted), scratch.Text("old.txt"));
    EXPECT_EQ(answer(QDialog::Rejected), u"");
}
