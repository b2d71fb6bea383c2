// The attributes that were changed after a newer entry had taken over from them.
#pragma once

#include "ObserverList.h"

#include <QDialog>
#include <cstdint>

class CAttributeUseModel;
class IEditor;

class CDeferredModifiedDlg final : public QDialog
{
public:
    // Collects the attributes for `build`, which takes one walk over all records. `editor` is not owned.
    CDeferredModifiedDlg(IEditor& editor, std::uint32_t build, QWidget* parent);

    // There is nothing to show.
    [[nodiscard]] bool IsEmpty() const;

private:
    void Collect(std::uint32_t build);
    void ActivateRow(int row);

    IEditor& m_Editor;
    CAttributeUseModel* m_pModel;
    CObserverHandle m_EventHandle;
};
