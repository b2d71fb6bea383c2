#include "flags/CorvaneTypeFlagsValueActivateDlg.h"

#include "ElidedLabel.h"
#include "QtText.h"
#include "Theme.h"
#include "TipText.h"
#include "flags/FlagsText.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

namespace
{
constexpr int kBits = 32;
constexpr int kRows = 8;
constexpr qsizetype kLongestLabel = 32;
constexpr int kWidestTip = 400;

// The declaration of a bit, which a schema makes once at most; null for none.
const SFlag* FindFlag(std::span<const SFlag> flags, int bit)
{
    const auto found = std::find_if(flags.begin(), flags.end(),
                                    [bit](const SFlag& flag) { return flag.m_nIndex == bit + 1; });
    return found == flags.end() ? nullptr : &*found;
}

QString MakeFlagTip(const SFlag& flag, const QFontMetrics& metrics)
{
    QString text = ToQString(flag.m_sDescription);
    text.replace(QStringLiteral("\\r\\n"), QStringLiteral("\n"));
    text.replace(QStringLiteral("\\r"), QStringLiteral("\n"));
    text.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    const QString name = ToQString(flag.m_sName);
    if (name.size() > kLongestLabel)
        text = text.isEmpty() ? name : name + u'\n' + text;
    if (text.isEmpty() || metrics.boundingRect(QRect(), 0, text).width() <= kWidestTip)
        return MakeTip(text);
    return QStringLiteral("<table width=\"%1\"><tr><td>%2</td></tr></table>")
        .arg(QString::number(kWidestTip), MakeTip(text));
}
} // namespace

CCorvaneTypeFlagsValueActivateDlg::CCorvaneTypeFlagsValueActivateDlg(std::u16string_view attribute,
                                                                     std::span<const SFlag> flags,
                                                                     std::uint32_t mask, QWidget* parent)
    : QDialog(parent), m_nMask(mask), m_pMask(new QLineEdit(ToQString(FormatFlags(mask)))),
      m_pGrid(new QGridLayout)
{
    setObjectName(QStringLiteral("FlagsValueActivateDlg"));
    setWindowTitle(QStringLiteral("Flags"));
    AddBoxes(*m_pGrid, flags);
    MakeLayout(attribute);
    const QList<QCheckBox*> boxes = findChildren<QCheckBox*>();
    const auto first = std::find_if(boxes.begin(), boxes.end(), [](auto* box) { return box->isEnabled(); });
    if (first != boxes.end())
        (*first)->setFocus();
}

void CCorvaneTypeFlagsValueActivateDlg::AddBoxes(QGridLayout& grid, std::span<const SFlag> flags)
{
    grid.setHorizontalSpacing(2 * CTheme::kSpacing);
    grid.setVerticalSpacing(CTheme::kGrid);
    for (int bit = 0; bit < kBits; ++bit)
    {
        auto* box = new QCheckBox(QStringLiteral("Unassigned"));
        box->setObjectName(QStringLiteral("Flag%1").arg(bit + 1));
        const SFlag* flag = FindFlag(flags, bit);
        box->setEnabled(flag != nullptr);
        if (flag != nullptr)
        {
            const QString name = ToQString(flag->m_sName);
            box->setAccessibleName(name);
            box->setText(LimitText(name, kLongestLabel).replace(u'&', QStringLiteral("&&")));
            box->setToolTip(MakeFlagTip(*flag, fontMetrics()));
            box->setChecked((m_nMask >> bit & 1U) != 0);
            connect(box, &QCheckBox::toggled, this, [this, bit](bool on) { SetBit(bit, on); });
        }
        grid.addWidget(box, bit % kRows, bit / kRows);
    }
}

void CCorvaneTypeFlagsValueActivateDlg::MakeLayout(std::u16string_view attribute)
{
    auto* name = new CElidedLabel;
    name->setObjectName(QStringLiteral("Attribute"));
    name->setAccessibleName(QStringLiteral("Attribute"));
    name->setFont(CTheme::GetNameFont());
    name->SetText(ToQString(attribute));
    m_pMask->setObjectName(QStringLiteral("Mask"));
    m_pMask->setAccessibleName(QStringLiteral("Mask"));
    m_pMask->setReadOnly(true);
    auto* maskLabel = new QLabel(QStringLiteral("&Mask:"));
    maskLabel->setBuddy(m_pMask);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* last = new QHBoxLayout;
    last->addWidget(maskLabel);
    last->addWidget(m_pMask);
    last->addStretch();
    last->addWidget(buttons);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    all->setSpacing(CTheme::kMargin);
    all->setSizeConstraint(QLayout::SetFixedSize);
    all->addWidget(name);
    all->addLayout(m_pGrid);
    all->addLayout(last);
}

void CCorvaneTypeFlagsValueActivateDlg::SetBit(int bit, bool on)
{
    m_nMask = on ? m_nMask | 1U << bit : m_nMask & ~(1U << bit);
    m_pMask->setText(ToQString(FormatFlags(m_nMask)));
}
