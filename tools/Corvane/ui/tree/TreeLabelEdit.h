// Renaming in place. While the editor is open the frame's keys are off, so that they reach it; the name is
// changed when it has closed, since that may ask questions and the row may go.
#pragma once

#include "TreeItem.h"

#include <QObject>
#include <QString>
#include <functional>

class CCorvaneTreeModel;
class CTreeControl;
class IEditorFrame;

class CTreeLabelEdit final : public QObject
{
public:
    // None of them is owned.
    CTreeLabelEdit(IEditorFrame& frame, CCorvaneTreeModel& model, CTreeControl& tree, QObject* parent);

    // Records, and categories that are nothing but names.
    [[nodiscard]] static bool IsAllowed(const CTreeItem& item);
    // False when somebody else has the object checked out, or there is no row for it.
    bool Begin(const CTreeItem& item);
    // The same when the operation that runs is through.
    void BeginLater(const CTreeItem& item);
    [[nodiscard]] bool IsOpen() const { return m_pEditor != nullptr; }
    // Takes what has been typed, now.
    void Finish();
    // Lets go of every object.
    void OnClosed();

private:
    void OnText(const QString& text);
    void OnEditorGone(const QObject* editor);
    void Apply();
    [[nodiscard]] bool Rename(const CTreeItem& item, const std::u16string& name);

    IEditorFrame& m_Frame;
    CCorvaneTreeModel& m_Model;
    CTreeControl& m_Tree;
    CTreeItem m_Edited;
    CTreeItem m_Later;
    std::u16string m_sText;
    bool m_bText = false;               // Something is to be applied.
    const QObject* m_pEditor = nullptr; // Null while none is open.
};
