// The pane with the attributes of a document's record: header, rows, scroll bar, and the commands on the
// selected attribute or value.
#pragma once

#include "CommandTarget.h"
#include "CorvaneType.h"
#include "ObserverList.h"

#include <QString>
#include <QWidget>

class CCorvaneDoc;
class CCorvaneListViewHeader;
class CCorvaneListViewList;
class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneTypeView;
class IEditorFrame;
class QScrollBar;
enum class ERecordUpdate;

class CCorvaneListView final : public QWidget, public ICommandTarget
{
public:
    CCorvaneListView(IEditorFrame& frame, QWidget* parent);
    ~CCorvaneListView() override;

    // Shows the document's record and follows it. Null shows nothing. The document outlives its being set.
    void SetDocument(CCorvaneDoc* document);
    // Shows a record that no document has; null for none.
    void ShowRecord(CCorvaneRecord* record);
    [[nodiscard]] CCorvaneListViewList& GetList() { return *m_pList; }
    // Ends an open edit, with or without its value. To be called before anything that a commit could disturb.
    void EndEdit(bool commit);
    // Selects an attribute and, from 0 on, one of its values. False when it is not shown.
    bool SelectAttribute(const CCorvaneAttrib& attrib, int item);

    [[nodiscard]] bool GetCommandState(int id, SCommandState& state) override;
    bool RunCommand(int id) override;

private:
    struct SCommandRow;
    [[nodiscard]] static const SCommandRow* FindCommandRow(int id);

    void OnUpdate(ERecordUpdate hint);
    // The page of the selected attribute, or of the member that is selected in it; it is built again only
    // when it differs from the one on show.
    void UpdateHelp();
    void ShowPage(const QString& page);
    void OnPopup(const QPoint& point);
    // The view that commands work on; null while no row is selected.
    [[nodiscard]] CCorvaneTypeView* GetTarget() const;
    [[nodiscard]] bool IsExpert() const;

    // States of the commands, and the commands.
    void GetEditState(SCommandState& state) const;
    void GetMoveUpState(SCommandState& state) const;
    void GetMoveDownState(SCommandState& state) const;
    void GetDeleteState(SCommandState& state) const;
    void GetExpandState(SCommandState& state) const;
    void GetCollapseState(SCommandState& state) const;
    void GetAllState(SCommandState& state) const;
    void GetLockState(SCommandState& state) const;
    void GetReferenceState(SCommandState& state) const;
    void GetOverrideState(SCommandState& state) const;
    void GetTodoState(SCommandState& state) const;
    void GetPlaceHolderState(SCommandState& state) const;
    void GetExpertState(SCommandState& state) const;
    void GetPropertiesState(SCommandState& state) const;
    void Edit();
    void MoveUp();
    void MoveDown();
    void Delete();
    void Expand();
    void Collapse();
    void ExpandAll();
    void CollapseAll();
    void ToggleLock();
    void ToggleReference();
    void ToggleOverride();
    void ToggleTodo();
    void TogglePlaceHolder();
    void DeferDelete();
    void DeferDeprecate();
    void ImmediateDelete();
    void Properties();
    void GetMarkState(SCommandState& state, bool (CCorvaneAttrib::*mark)() const) const;
    void MoveValue(bool up);
    void RunOnAttribute(bool (CCorvaneType::*edit)(bool), bool on);
    template <class Dialog> void Defer(bool (CCorvaneMgr::*defer)(CCorvaneAttrib*, std::uint32_t));
    [[nodiscard]] bool DeleteFromSchema(CCorvaneType& attrib);

    IEditorFrame& m_Frame;
    CCorvaneListViewHeader* m_pHeader;
    QScrollBar* m_pScrollBar;
    CCorvaneListViewList* m_pList;
    CCorvaneDoc* m_pDocument = nullptr;
    QString m_sPage; // On show in the help pane, as far as this list knows.
    CObserverHandle m_DocumentHandle;
};
