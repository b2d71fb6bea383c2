#include "DiskFileSystem.h"
#include "FileFilter.h"
#include "QtFileDialogs.h"
#include "QtText.h"
#include "ScratchDir.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>
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
    const SFileDialog dialog{u"Save", ToText(QString::fromStdString(scratch.GetPath().string() + "/old.txt")),
                             u"txt", u"Text Files (*.txt)|*.txt|"};
    QString shown;
    const auto answer = [&](const QString& name, bool accept)
    {
        QTimer::singleShot(0, qApp,
                           [&, name, accept]
                           {
                               QDialog* window =
                                   qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
                               ASSERT_NE(window, nullptr);
                               auto* edit = window->findChild<QLineEdit*>();
                               shown = edit->text();
                               edit->setText(name);
                               accept ? window->accept() : window->reject();
                           });
        return dialogs.SaveFile(nullptr, dialog);
    };
    EXPECT_EQ(answer(QStringLiteral("list"), true),
              ToText(QString::fromStdString((scratch.GetPath() / "list.txt").string())));
    EXPECT_EQ(shown, QStringLiteral("old.txt"));
    EXPECT_EQ(answer(QStringLiteral("list"), false), u"");
}
