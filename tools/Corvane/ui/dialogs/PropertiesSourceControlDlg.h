// What source control knows of an object's file.
#pragma once

#include "PropertiesBaseDlg.h"

#include <span>

class CSourceGate;
class QTableView;
class QToolButton;

// The state of a file as the page words it.
[[nodiscard]] std::u16string_view GetSourceControlText(CSourceGate& gate, std::u16string_view path);

class CPropertiesSourceControlDlg final : public CPropertiesBaseDlg
{
public:
    // `path` is that of the object's file; empty for one that was never saved.
    CPropertiesSourceControlDlg(const SPropertiesContext& context, std::u16string_view path);

    [[nodiscard]] bool Apply() override { return true; }
    void Refresh() override;
    void Forget() override {}

private:
    [[nodiscard]] QLineEdit& AddServerPath();
    void AddList(const char* objectName, const QString& label, const QStringList& titles,
                 std::span<const int> widths);
    void AddHistoryButton();

    std::u16string m_sFile;
    QLineEdit& m_ServerPath;
    QLineEdit& m_Status;
    QLineEdit& m_Latest;
};
