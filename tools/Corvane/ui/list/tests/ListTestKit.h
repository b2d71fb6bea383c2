// The attribute list over a small database, in a window of its own, with a help pane.
#pragma once

#include "Commands.h"
#include "CorvaneHtmlView.h"
#include "CorvaneListView.h"
#include "CorvaneListViewHeader.h"
#include "CorvaneListViewList.h"
#include "CorvaneSchemaAttribData.h"
#include "CorvaneTypeValueDlg.h"
#include "RegisterTypeViews.h"
#include "TestEditor.h"
#include "TypeViewRegistry.h"
#include "Unicode.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QScrollBar>
#include <QTest>

#include <QVBoxLayout>
#include <QWheelEvent>
#include <gtest/gtest.h>

class CListTestKit : public testing::Test
{
protected:
    static constexpr const char* kSchema =
        "[Attrib.Armor.0]\nType=Integer\nData=min=0;max=200\nDefault=100\nHelp=Thickness of the plates.\n"
        "[Attrib.Costs.0]\nType=Integer\nValues=-1\nDefault=7\n"
        "[Attrib.Speed.0]\nType=Integer\nValues=3\nDefault=5\n"
        "[Attrib.Ammo.0]\nType=Integer\nDefault=1\n";

    CListTestKit()
    {
        static const bool registered = (RegisterTypeViews(GetTypeViews()), true);
        EXPECT_TRUE(registered);
        m_Test.AddSchema("Unit", kSchema);
        m_Test.AddCategory("Units", "Unit");
        m_Test.AddRecord("Units/Tank", "Unit");
        m_Test.AddRecord("Units/Heavy", "Unit",
                         "[Hierarchy]\nRecord=Units/Tank\n\n[Attrib.Armor]\nInherit=True\n\n");
        EXPECT_TRUE(m_Test.Open());
        m_Editor.m_pHelp = &m_Help;
        auto* layout = new QVBoxLayout(&m_Editor.m_Window);
        m_pView = new CCorvaneListView(m_Editor, &m_Editor.m_Window);
        layout->addWidget(m_pView);
        m_Editor.m_Window.resize(760, 340);
        m_Editor.m_Window.show();
        m_Editor.m_Window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_Editor.m_Window));
        m_pView->SetDocument(&m_Editor.m_Document);
        m_Editor.m_Document.SetRecord(&m_Test.Record("Units/Tank"));
        List().setFocus();
    }
    ~CListTestKit() override
    {
        m_Editor.m_Document.SetRecord(nullptr);
        delete m_pView;
    }

    [[nodiscard]] CCorvaneListViewList& List() { return m_pView->GetList(); }
    [[nodiscard]] CCorvaneTypeView& Row(const char* name)
    {
        List().Flush();
        return *List().GetAttribute(Find(name));
    }
    [[nodiscard]] int Find(const char* name)
    {
        for (int i = 0; i < List().GetAttributeCount(); ++i)
            if (ToNarrow(List().GetAttribute(i)->GetParentType().GetName()) == name)
                return i;
        ADD_FAILURE() << "no row " << name;
        return 0;
    }
    [[nodiscard]] std::string Names()
    {
        List().Flush();
        std::string names;
        for (int i = 0; i < List().GetAttributeCount(); ++i)
            names += ToNarrow(List().GetAttribute(i)->GetParentType().GetName()) + ' ';
        return names;
    }
    [[nodiscard]] QRect RowRect(const char* name)
    {
        QRect rect;
        EXPECT_GE(List().GetItemRect(Find(name), rect), 0);
        return rect;
    }
    void Select(const char* name, int item = kHeaderItem)
    {
        List().SetSelection(Find(name));
        Row(name).SetExpanded(true);
        List().MeasureAttribute(Find(name));
        Row(name).SetActiveSubItem(item);
    }
    void ClickCell(const char* name, EListColumn column, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::mouseClick(&List(), Qt::LeftButton, modifiers,
                          Row(name).GetCellRect(RowRect(name), column).center());
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&List(), key, modifiers); }
    // The field of the editor that is open.
    [[nodiscard]] QLineEdit* Field()
    {
        CCorvaneTypeView* row = List().GetSelectedRow();
        CCorvaneTypeValueDlg* dialog = row ? row->GetValueDialog() : nullptr;
        return dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("IntegerValue")) : nullptr;
    }
    [[nodiscard]] bool Run(int id)
    {
        SCommandState state;
        return m_pView->GetCommandState(id, state) && state.m_bEnabled && m_pView->RunCommand(id);
    }

    CTestDatabase m_Test;
    CTestEditor m_Editor{m_Test};
    CCorvaneHtmlView m_Help{nullptr};
    CCorvaneListView* m_pView;
};
