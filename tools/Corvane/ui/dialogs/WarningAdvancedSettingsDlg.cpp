#include "WarningAdvancedSettingsDlg.h"

#include "DialogParts.h"
#include "IconSet.h"
#include "Profile.h"
#include "Theme.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

namespace
{
constexpr std::u16string_view kSection = u"General";
constexpr std::u16string_view kKey = u"Warning.Advanced.Settings";
constexpr int kLargeIcon = 2 * CTheme::kIconSize;
} // namespace

bool CWarningAdvancedSettingsDlg::Confirm(CProfile& profile, QWidget* parent)
{
    if (profile.GetInteger(kSection, kKey, 0) != 0)
        return true;
    CWarningAdvancedSettingsDlg dialog(profile, parent);
    return dialog.exec() == Accepted;
}

CWarningAdvancedSettingsDlg::CWarningAdvancedSettingsDlg(CProfile& profile, QWidget* parent)
    : QDialog(parent), m_Profile(profile),
      m_pNeverAgain(new QCheckBox(tr("Do not warn me about advanced settings again.")))
{
    setObjectName(QStringLiteral("WarningAdvancedSettingsDlg"));
    setWindowTitle(tr("Advanced Settings"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    auto* row = new QHBoxLayout;
    auto* icon = new QLabel;
    icon->setPixmap(GetIcon("warning").pixmap(QSize(kLargeIcon, kLargeIcon), devicePixelRatio()));
    row->addWidget(icon, 0, Qt::AlignTop);
    row->addSpacing(CTheme::kGrid);
    AddNote(*row,
            u"Advanced settings change which builds of the game an attribute belongs to and which build "
            u"is compiled.  A wrong choice can break the build for the entire team.\n\n"
            u"Do you want to use the advanced settings?");
    layout.addLayout(row);
    SetNames(*m_pNeverAgain, "NeverAgain", m_pNeverAgain->text());
    layout.addWidget(m_pNeverAgain);
    AddOkCancel(*this, layout).button(QDialogButtonBox::Ok)->setFocus();
    layout.setSizeConstraint(QLayout::SetFixedSize);
}

void CWarningAdvancedSettingsDlg::done(int result)
{
    m_Profile.SetInteger(kSection, kKey, m_pNeverAgain->isChecked() ? 1 : 0);
    QDialog::done(result);
}
