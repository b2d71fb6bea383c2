#include "CompileView.h"

#include "DeferredModifiedDlg.h"
#include "Editor.h"
#include "TestBuildDlg.h"
#include "ValidateCore.h"
#include "ValidateDlg.h"
#include "WaitCursor.h"

#include <memory>

namespace
{
std::unique_ptr<CDeferredModifiedDlg> Collect(IEditor& editor, std::uint32_t build, QWidget* parent)
{
    const CWaitCursor wait;
    return std::make_unique<CDeferredModifiedDlg>(editor, build, parent);
}
} // namespace

void CCompileView::ShowFindings(const CValidateCore& findings, bool modal)
{
    if (modal)
        CValidateDlg(m_Editor, m_pParent).DoModalFor(findings, findings.GetBuild());
    else
        m_Editor.ShowValidation(findings);
}

void CCompileView::ShowModifiedAttributes(std::uint32_t build)
{
    const std::unique_ptr<CDeferredModifiedDlg> dialog = Collect(m_Editor, build, m_pParent);
    if (!dialog->IsEmpty())
        dialog->exec();
}

bool CCompileView::ConfirmTestBuild(std::u16string_view target)
{
    return CTestBuildDlg(target, m_pParent).exec() == QDialog::Accepted;
}
