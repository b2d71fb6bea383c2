#include "PropertiesSheet.h"
#include "CorvaneCategory.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneType.h"
#include "DialogDrive.h"
#include "NextDialog.h"
#include "PropertiesBaseDlg.h"
#include "PropertiesSourceControlDlg.h"
#include "PropertiesText.h"
#include "TestEditor.h"
#include "UndoScope.h"
#include "Unicode.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QListView>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTextBrowser>
#include <QToolButton>
#include <filesystem>

namespace
{
class Properties : public testing::Test
{
protected:
    Properties()
    {
        m_Database.AddSchema("Base", "[Attrib.Old.0]\nType=Text\n");
        m_Database.AddSchema(
            "Thing", "[Attrib.Mass.10]\nType=Integer\nHelp=in <b>kg</b>\n[Attrib.Mass.0]\nType=Integer\n",
            "Base");
        m_Database.AddCategory("All", "Thing");
        m_Database.AddRecord("All/One", "Thing", "", "Comment=first\n");
        m_Database.AddRecord("All/Two", "Thing", "[Hierarchy]\nRecord=All/One\n");
        EXPECT_TRUE(m_Database.Open());
        // Nothing of a load or a set-up is a change.
        m_Database.Get().SetDirty(false);
    }

    // Shows the properties and lets `user` act in the sheet, which he must end.
    template <class T> bool Show(T& object, const std::function<void(QDialog&)>& user)
    {
        const CNextDialog driver(user);
        return ShowProperties(m_Editor, object);
    }

    static std::string GetText(const QWidget& page, const char* name)
    {
        return GetChild<QLineEdit>(page, name).text().toStdString();
    }
    static std::string GetPath(const QWidget& page)
    {
        return GetText(GetChild<QWidget>(page, "LocalPath"), "path");
    }
    static void Type(const QWidget& page, const char* name, const char* text)
    {
        auto& field = GetChild<QPlainTextEdit>(page, name);
        field.selectAll();
        for (; *text != '\0'; ++text)
            *text == '\n' ? QTest::keyClick(&field, Qt::Key_Return) : QTest::keyClick(&field, *text);
    }

    CTestDatabase m_Database;
    CTestEditor m_Editor{m_Database};
};
} // namespace

TEST_F(Properties, OfARecord)
{
    CCorvaneRecord& one = m_Database.Record("All/One");
    EXPECT_FALSE(Show(one,
                      [&](QDialog& sheet)
                      {
                          EXPECT_EQ(sheet.windowTitle(), QStringLiteral("Properties for One"));
                          auto& page = GetChild<QWidget>(sheet, "PropertiesRecordDlg");
                          EXPECT_EQ(GetText(page, "Name"), "One");
                          EXPECT_EQ(GetPath(page), ToNarrow(one.GetFile()));
                          EXPECT_EQ(GetText(page, "Referencer"), "");
                          EXPECT_FALSE(GetChild<QWidget>(page, "OpenReferencer").isEnabled());
                          Press(page, "openFolder");
                          auto& schema = GetChild<QWidget>(sheet, "PropertiesSchemaDlg");
                          EXPECT_EQ(GetText(schema, "Name"), "Thing");
                          EXPECT_EQ(GetText(schema, "Parent"), "Base");
                          auto& control = GetChild<QWidget>(sheet, "PropertiesSourceControlDlg");
                          EXPECT_EQ(GetText(control, "Status"), "Not connected to source control");
                          EXPECT_EQ(GetText(control, "ServerPath"), "[Unknown]");
                          Press(sheet, "Ok");
                      }));
    EXPECT_EQ(ToNarrow(m_Database.m_Services.m_Calls.at(0)), "show " + ToNarrow(one.GetFile()));
    EXPECT_EQ(m_Database.m_Questions.Count(u"Open Folder"), 1u);
    EXPECT_FALSE(m_Database.Get().IsDirty());

    EXPECT_TRUE(Show(one,
                     [&](QDialog& sheet)
                     {
                         Type(sheet, "Comment", "new\ncomment");
                         auto& list = GetChild<QListView>(sheet, "Referencees");
                         EXPECT_EQ(list.model()->index(0, 0).data().toString().toStdString(), "All/Two");
                         Q_EMIT list.doubleClicked(list.model()->index(0, 0));
                     }));
    EXPECT_EQ(ToNarrow(one.GetComment()), "new\r\ncomment");
    EXPECT_TRUE(one.TestFlag(RECORD_FLAG_MODIFIED));
    ASSERT_EQ(m_Editor.m_Opened.size(), 1u);
    EXPECT_EQ(m_Editor.m_Opened[0], &m_Database.Record("All/Two"));
    Show(m_Database.Record("All/Two"),
         [](QDialog& sheet)
         {
             EXPECT_EQ(GetText(sheet, "Referencer"), "All/One");
             Press(sheet, "OpenReferencer");
         });
    EXPECT_EQ(m_Editor.m_Opened.at(1), &one);
}

TEST_F(Properties, TextsPassTheGate)
{
    m_Database.m_Gate.m_bConnected = true;
    m_Database.m_Gate.m_bGrant = false;
    CCorvaneCategory& all = m_Database.Category("All");
    const auto edit = [&](QDialog& sheet)
    {
        auto& page = GetChild<QWidget>(sheet, "PropertiesCategoryDlg");
        EXPECT_TRUE(GetChild<QCheckBox>(page, "System").isChecked());
        Type(page, "Help", "help");
        Type(page, "Comment", "comment");
        Press(sheet, "Ok");
        if (sheet.isVisible())
            Press(sheet, "Cancel");
    };
    EXPECT_FALSE(Show(all, edit));
    EXPECT_FALSE(Show(m_Database.Record("All/One"),
                      [](QDialog& sheet)
                      {
                          Type(sheet, "Comment", "other");
                          Press(sheet, "Ok");
                          Press(sheet, "Cancel");
                      }));
    EXPECT_EQ(m_Database.m_Gate.m_nAsked, 2);
    EXPECT_EQ(ToNarrow(all.GetHelp() + m_Database.Record("All/One").GetComment()), "first");
    EXPECT_FALSE(m_Database.Get().IsDirty());
    m_Database.m_Gate.m_bGrant = true;
    EXPECT_TRUE(Show(all, edit));
    EXPECT_EQ(ToNarrow(all.GetHelp() + all.GetComment()), "helpcomment");
    ASSERT_TRUE(m_Database.Get().SaveDatabase({}, false));
    EXPECT_NE(m_Database.Read("All/cvd.category").find("Help=help"), std::string::npos);
}

TEST(SourceControlPage, WordsTheState)
{
    const struct
    {
        bool m_bControlled;
        std::uint32_t m_nFlags;
        ECheckOutState m_State;
        const char* m_sText;
    } rows[] = {
        {false, FILE_FLAG_MINE, ECheckOutState::ForEdit, "Not under source control"},
        {true, FILE_FLAG_MINE | FILE_FLAG_PENDING_ADD, ECheckOutState::ForDelete, "Checked out for delete"},
        {true, FILE_FLAG_MINE | FILE_FLAG_PENDING_ADD, ECheckOutState::ForEdit,
         "Imported/Created, Checked out for edit"},
        {true, FILE_FLAG_MINE | FILE_FLAG_SOMEBODY_ELSES, ECheckOutState::ForEdit, "Checked out for edit"},
        {true, FILE_FLAG_SOMEBODY_ELSES | FILE_FLAG_PENDING_ADD, ECheckOutState::NotControlled,
         "Checked out by another user"},
        {true, FILE_FLAG_PENDING_ADD, ECheckOutState::NotControlled, "Imported/Created"},
        {true, FILE_FLAG_OPEN, ECheckOutState::NotControlled, "Checked in"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(ToNarrow(GetSourceControlText(row.m_bControlled, row.m_nFlags, row.m_State)), row.m_sText);
}

TEST_F(Properties, WhatNoFileKeepsCannotBeChanged)
{
    const auto isFixed = [](QDialog& sheet)
    {
        EXPECT_TRUE(GetChild<QPlainTextEdit>(sheet, "Comment").isReadOnly());
        Press(sheet, "Cancel");
    };
    std::filesystem::permissions(m_Database.GetPath("All/cvd.category"), std::filesystem::perms::owner_read);
    EXPECT_FALSE(Show(m_Database.Category("All"), isFixed)) << "a read-only file";
    CCorvaneCategory* inner =
        m_Database.Get().CreateVirtualRelativeCategory(&m_Database.Category("All"), u"Inner");
    EXPECT_FALSE(Show(*inner, isFixed)) << "a virtual category";
    ASSERT_TRUE(m_Database.Record("All/Two").SetComment(std::u16string(2 * CPropertiesText::kMaxText, u'x')));
    EXPECT_FALSE(Show(m_Database.Record("All/Two"), isFixed)) << "a text that would be cut";
    m_Database.Record("All/One").SetFlag(RECORD_FLAG_COMPARE, true);
    EXPECT_FALSE(Show(m_Database.Record("All/One"), isFixed)) << "a compare record";
    auto& files = m_Database.m_Files;
    EXPECT_EQ(ToNarrow(MakePathText(files, {})), "-- not saved --");
    EXPECT_EQ(ToNarrow(MakePathText(files, u"/no/x.record")), "/no/x.record (NOT FOUND)");
}

TEST_F(Properties, OfAnAttributeAndItsBuilds)
{
    CCorvaneType& newer = m_Database.Attrib("All/One", "Mass", 10);
    EXPECT_TRUE(Show(newer,
                     [](QDialog& sheet)
                     {
                         EXPECT_EQ(GetText(sheet, "Name"), "Mass");
                         EXPECT_EQ(GetText(sheet, "Type"), "Integer");
                         EXPECT_EQ(GetChild<QTextBrowser>(sheet, "Help").toPlainText(),
                                   QStringLiteral("in kg"));
                         EXPECT_EQ(GetChild<QTableView>(sheet, "Builds").model()->rowCount(), 2);
                         EXPECT_EQ(sheet.findChild<QLineEdit*>(QStringLiteral("Build")), nullptr);
                         Type(sheet, "Comment", "heavy");
                         Press(sheet, "Ok");
                     }));
    EXPECT_EQ(ToNarrow(newer.GetComment()), "heavy");

    m_Database.m_Run.Set(APP_EXPERT);
    EXPECT_TRUE(Show(newer,
                     [this](QDialog& sheet)
                     {
                         auto& build = GetChild<QLineEdit>(sheet, "Build");
                         EXPECT_EQ(build.text(), QStringLiteral("10"));
                         build.selectAll();
                         QTest::keyClicks(&build, QStringLiteral("0"));
                         Press(sheet, "Apply");
                         EXPECT_EQ(m_Database.m_Questions.Count(u"Invalid Build Number"), 1u);
                         build.selectAll();
                         QTest::keyClicks(&build, QStringLiteral("20"));
                         GetChild<QCheckBox>(sheet, "Deleted").click();
                         Press(sheet, "Ok");
                     }));
    EXPECT_EQ(newer.GetBuild(), 20u);
    EXPECT_TRUE(newer.GetAttribData()->TestFlag(ATTRIB_FLAG_DELETED));
    EXPECT_TRUE(m_Database.Schema("Thing").TestFlag(SCHEMA_FLAG_MODIFIED));
}

TEST_F(Properties, EndWithTheirObject)
{
    CRef<CCorvaneRecord> two(&m_Database.Record("All/Two"));
    const auto waitForEnd = [](QDialog& sheet)
    { EXPECT_TRUE(QTest::qWaitFor([&sheet] { return !sheet.isVisible(); })); };
    EXPECT_FALSE(Show(*two,
                      [&](QDialog& sheet)
                      {
                          Type(sheet, "Comment", "late");
                          CUndoScope scope(m_Database.m_Undo);
                          EXPECT_TRUE(m_Database.Get().DeleteRecord(*two, false));
                          scope.Accept(u"Delete");
                          waitForEnd(sheet);
                      }));
    EXPECT_EQ(ToNarrow(two->GetComment()), "");
    two = nullptr;
    EXPECT_FALSE(Show(m_Database.Attrib("All/One", "Old"),
                      [&](QDialog& sheet)
                      {
                          EXPECT_TRUE(m_Database.Get().CloseDatabase());
                          waitForEnd(sheet);
                      }));
}
