// A page of a sheet of pages; see PageSheet.h. It shows what is, and writes what the user changed when it is
// applied.
#pragma once

#include <QWidget>
#include <functional>

class CSheetPage : public QWidget
{
public:
    // Nothing to do for a page that was not changed. False when a change could not be made or was taken back,
    // which has been told.
    [[nodiscard]] virtual bool Apply() = 0;
    // Shows things as they are; what the user changed is given up.
    virtual void Refresh() = 0;
    [[nodiscard]] bool IsModified() const { return m_bModified; }

    // Called when the user changes something.
    std::function<void()> m_OnModified;

protected:
    // For the signals of controls.
    void SetModified()
    {
        m_bModified = true;
        if (m_OnModified)
            m_OnModified();
    }
    void ClearModified() { m_bModified = false; }

private:
    bool m_bModified = false;
};
