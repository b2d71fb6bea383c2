// The base of the in-place editors: a child of the list's surface that lies over a value's cell.
//
// Enter accepts, Escape cancels, losing the focus accepts; the list adds that a press outside, a scroll and a
// switch to another program accept. Texts are in the stored form of the type, as SetValue takes them. An
// editor that nobody touched gives back the very text that it was given.
//
// A type's editor either calls AddLineEdit and overrides ReadText, or builds its own fields and overrides
// ShowText, ReadText and TakeFocus. Fields need an object name and an accessible name.
#pragma once

#include <QFrame>
#include <QPointer>
#include <functional>
#include <string>
#include <string_view>

class CCorvaneTypeView;
class QLineEdit;

class CCorvaneTypeValueDlg : public QFrame
{
public:
    // `view` opens and closes the editor and outlives its use.
    CCorvaneTypeValueDlg(CCorvaneTypeView& view, QWidget* parent);
    ~CCorvaneTypeValueDlg() override;

    void SetText(std::u16string_view text);
    [[nodiscard]] virtual std::u16string GetText() const;

    // End the edit; the second call does nothing. `Accept` is a choice of the user, which counts also where
    // the text is what it was.
    void Accept() { Finish(EEnd::Chosen); }
    void Cancel() { Finish(EEnd::Cancelled); }
    [[nodiscard]] bool IsCancelled() const { return m_End == EEnd::Cancelled; }
    [[nodiscard]] bool IsChosen() const { return m_End == EEnd::Chosen; }
    // Called once, when Enter, Escape, a choice or the loss of the focus ends the edit.
    void SetFinishCallback(std::function<void()> callback) { m_OnFinished = std::move(callback); }
    // From now on the editor answers to nothing; it goes once the event loop runs.
    void Dismiss();

    // The place of the editor for a cell of the list; a taller one stays inside the surface.
    [[nodiscard]] virtual QRect GetPlacement(const QRect& cell) const;
    // Gets the keyboard. `click` is where the pointer was pressed, in the editor's coordinates.
    virtual void TakeFocus(const QPoint& click);

    // While one of these lives, nothing but Accept and Cancel ends the edit: for a file dialog, a drop list
    // or a menu that the editor opened.
    class CKeepOpen
    {
    public:
        explicit CKeepOpen(CCorvaneTypeValueDlg& dialog) : m_pDialog(&dialog) { ++dialog.m_nKeepOpen; }
        ~CKeepOpen();
        CKeepOpen(const CKeepOpen&) = delete;
        CKeepOpen& operator=(const CKeepOpen&) = delete;

    private:
        QPointer<CCorvaneTypeValueDlg> m_pDialog; // A modal loop may see the editor go.
    };
    [[nodiscard]] bool IsKeptOpen() const { return m_nKeepOpen > 0; }
    // The editor, a child of it, or a window that it opened.
    [[nodiscard]] bool Owns(const QObject* object) const;

protected:
    [[nodiscard]] CCorvaneTypeView& GetView() const { return m_View; }
    // A line edit over the whole cell, for the types that need no more.
    QLineEdit& AddLineEdit(const QString& objectName);
    [[nodiscard]] QLineEdit* GetLineEdit() const { return m_pLine; }

    // Fills the fields from a text in stored form, and reads them. The base serves the line edit.
    virtual void ShowText(const QString& text);
    [[nodiscard]] virtual QString ReadText() const;

    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    // TAB goes through the editor's fields and accepts behind the last one.
    bool focusNextPrevChild(bool next) override;

private:
    enum class EEnd
    {
        Open,
        Chosen,
        Left, // The focus went elsewhere.
        Cancelled,
    };
    void Finish(EEnd end);
    void OnFocusChanged(const QWidget* now);

    CCorvaneTypeView& m_View;
    QLineEdit* m_pLine = nullptr;
    std::u16string m_sGiven;
    QString m_sShown; // What the untouched fields read as.
    EEnd m_End = EEnd::Open;
    int m_nKeepOpen = 0;
    std::function<void()> m_OnFinished;
};
