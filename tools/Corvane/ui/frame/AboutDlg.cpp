#include "AboutDlg.h"

#include "IconSet.h"
#include "Theme.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace
{
constexpr int kIconSize = 64;
} // namespace

CAboutDlg::CAboutDlg(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("CAboutDlg"));
    setWindowTitle(tr("About Corvane"));
    auto* icon = new QLabel(this);
    icon->setPixmap(GetIcon("corvane").pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
    auto* name = new QLabel(QStringLiteral("Corvane " CORVANE_VERSION), this);
    name->setObjectName(QStringLiteral("version"));
    name->setFont(CTheme::GetNameFont());
    auto* text =
        new QLabel(tr("Editor and compiler of game databases\n\n"
                      "Built on Qt %1, ICU, GLib and FlatBuffers,\nunder the licences of their authors.")
                       .arg(QString::fromLatin1(qVersion())),
                   this);
    text->setObjectName(QStringLiteral("text"));
    for (QLabel* label : {name, text})
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(CTheme::kMargin, CTheme::kMargin, CTheme::kMargin, CTheme::kMargin);
    layout->setHorizontalSpacing(CTheme::kMargin);
    layout->setVerticalSpacing(CTheme::kSpacing);
    layout->addWidget(icon, 0, 0, 2, 1, Qt::AlignTop);
    layout->addWidget(name, 0, 1);
    layout->addWidget(text, 1, 1);
    layout->addWidget(buttons, 2, 0, 1, 2);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}
