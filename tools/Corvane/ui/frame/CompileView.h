// What a compile shows while it runs: findings, modified attributes, the request to test the packed file.
#pragma once

#include "DatabaseCompiler.h"

class IEditor;
class QWidget;

class CCompileView final : public ICompileView
{
public:
    // Neither is owned. `parent` is the parent of the dialogs.
    CCompileView(IEditor& editor, QWidget* parent) : m_Editor(editor), m_pParent(parent) {}

    void ShowFindings(const CValidateCore& findings, bool modal) override;
    // Nothing is shown when there are none.
    void ShowModifiedAttributes(std::uint32_t build) override;
    [[nodiscard]] bool ConfirmTestBuild(std::u16string_view target) override;

private:
    IEditor& m_Editor;
    QWidget* m_pParent;
};
