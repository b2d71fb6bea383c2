// What windows, panes and dialogs ask of the editor around them. The frames implement these; tests have their
// own.
#pragma once

class CCommandSet;
class CCorvaneHtmlView;
class CCorvaneRecord;
class CValidateCore;
class ICorvaneApplication;
class IFileDialogs;
class QWidget;

class IEditor
{
public:
    [[nodiscard]] virtual ICorvaneApplication& GetApplication() = 0;
    // Shows the record in the main window. False when it could not be shown.
    virtual bool ShowRecord(CCorvaneRecord* record, bool writable) = 0;
    // Shows the record in a window of its own; one that is open already brings the told question. False when
    // it could not be shown.
    virtual bool OpenRecordFrame(CCorvaneRecord* record, bool writable) = 0;
    // Shows findings in the main window's validation dialog, which takes a copy.
    virtual void ShowValidation(const CValidateCore& core) = 0;
    // "Refresh Status" over the whole tree; for those that changed files.
    virtual void RefreshStatus() = 0;
    // Every file dialog passes through these.
    [[nodiscard]] virtual IFileDialogs& GetFileDialogs() = 0;

protected:
    ~IEditor() = default;
};

// The frame that a pane lies in.
class IEditorFrame
{
public:
    [[nodiscard]] virtual IEditor& GetEditor() = 0;
    [[nodiscard]] virtual CCommandSet& GetCommandSet() = 0;
    // The parent of dialogs.
    [[nodiscard]] virtual QWidget* GetWindow() = 0;
    // Null in a frame without a help pane.
    [[nodiscard]] virtual CCorvaneHtmlView* GetHelpView() = 0;
    // Make a pane the active one. Nothing happens where the frame lacks it.
    virtual void ActivateTree() = 0;
    virtual void ActivateList() = 0;

protected:
    ~IEditorFrame() = default;
};
