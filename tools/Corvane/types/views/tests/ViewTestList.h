// A list of one row for the tests of a type's view: it shows, measures, clicks and edits the view of one
// attribute as the attribute list does, and nothing else.
#pragma once

#include "CorvaneTypeValueDlg.h"
#include "CorvaneTypeView.h"
#include "RegisterTypeViews.h"
#include "TestEditor.h"
#include "TypeViewRegistry.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QTest>
#include <gtest/gtest.h>

class CViewTestList final : public QWidget, public ITypeViewList
{
public:
    // Shows `attrib` of the editor's database, expanded and selected.
    CViewTestList(CTestEditor& editor, CCorvaneType& attrib) : m_Editor(editor)
    {
        static const bool registered = (RegisterTypeViews(GetTypeViews()), true);
        EXPECT_TRUE(registered);
        resize(700, 300);
        m_pView = GetTypeViews().Create(attrib, *this);
        m_pView->SetExpanded(true);
        m_pView->SetSelected(true);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
    }
    ~CViewTestList() override { m_pView->Detach(); }

    [[nodiscard]] IEditorFrame& GetFrame() override { return m_Editor; }
    [[nodiscard]] QWidget* GetViewport() override { return this; }
    [[nodiscard]] QRect GetColumnRect(EListColumn column) const override
    {
        constexpr int lefts[] = {0, 18, 322, 392, 482, 582, 602, 622, 642, 662, 682};
        return {lefts[column], 0, lefts[column + 1] - lefts[column], 0};
    }
    [[nodiscard]] bool IsActive() const override { return true; }
    void OnViewChanged(CCorvaneTypeView&) override { ++m_nChanges; }
    void BeginEdit() override
    {
        if (m_bEditing || !m_pView->CanEdit() || m_pView->GetActiveSubItem() == kHeaderItem)
            return;
        m_bEditing = true;
        const EViewUpdate update = m_pView->BeginEdit(m_pView->GetEditRect(GetRect()));
        if (update == EViewUpdate::EditEnded || update == EViewUpdate::MeasureEditEnded)
            m_bEditing = false;
    }
    void EndEdit(bool commit) override
    {
        if (!std::exchange(m_bEditing, false))
            return;
        if (commit)
            m_LastUpdate = m_pView->EndEdit();
        else
            m_pView->CancelEdit();
        setFocus();
    }

    [[nodiscard]] QRect GetRect() const { return {0, 0, width(), m_pView->Measure(width())}; }
    // Opens the editor of an item; null when there is none.
    CCorvaneTypeValueDlg* Edit(int item)
    {
        EndEdit(true);
        m_pView->SetActiveSubItem(item);
        BeginEdit();
        return m_pView->GetValueDialog();
    }
    // Opens the editor of an item, types over what it holds, and ends with a key.
    void Type(int item, const QString& text, Qt::Key end = Qt::Key_Return)
    {
        CCorvaneTypeValueDlg* dialog = Edit(item);
        ASSERT_NE(dialog, nullptr);
        QWidget* field = QApplication::focusWidget();
        ASSERT_TRUE(dialog->Owns(field));
        for (const QChar unit : text)
        {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(unit));
            QApplication::sendEvent(field, &press);
        }
        QTest::keyClick(field, end);
    }

    CTestEditor& m_Editor;
    CRef<CCorvaneTypeView> m_pView;
    int m_nChanges = 0;
    EViewUpdate m_LastUpdate = EViewUpdate::None;

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        m_pView->Draw(painter, GetRect(), rect());
    }
    void mousePressEvent(QMouseEvent* event) override
    {
        m_LastUpdate = m_pView->OnLButtonDown(GetRect(), event->pos(), event->modifiers());
    }

private:
    bool m_bEditing = false;
};
