// What source control knows of an object's file.
#pragma once

#include "PropertiesBaseDlg.h"

#include <cstdint>
#include <span>

class QBoxLayout;
class QStandardItemModel;
class QToolButton;
enum class ECheckOutState;

// The state of a file as the page words it; `flags` are bits of EFileFlags.
[[nodiscard]] std::u16string_view GetSourceControlText(bool controlled, std::uint32_t flags,
                                                       ECheckOutState state);

class CPropertiesSourceControlDlg final : public CPropertiesBaseDlg
{
public:
    // `path` is that of the object's file; empty for one that was never saved.
    CPropertiesSourceControlDlg(const SPropertiesContext& context, std::u16string_view path);

    [[nodiscard]] bool Apply() override { return true; }
    void Refresh() override;
    void Forget() override {}

private:
    // A field with a button of the provider beside it.
    void AddRow(const char* objectName, const QString& label, QWidget* field, QToolButton* button);
    [[nodiscard]] QLineEdit& AddServerPath();
    [[nodiscard]] QStandardItemModel* AddUsers();
    void AddHistory();
    void ShowUsers();

    std::u16string m_sFile;
    QLineEdit& m_ServerPath;
    QLineEdit& m_Status;
    QLineEdit& m_Latest;
    QStandardItemModel* m_pUsers;
};
