#include "views/CorvaneTypeButtonsValueDlg.h"

#include "IconSet.h"
#include "LongText.h"
#include "Theme.h"
#include "TipText.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

namespace
{
class CEditorButton final : public QToolButton
{
public:
    using QToolButton::QToolButton;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        // Return would go on to the editor and accept the value.
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QToolButton::keyPressEvent(event);
    }
};
} // namespace

CCorvaneTypeButtonsValueDlg::CCorvaneTypeButtonsValueDlg(CCorvaneTypeView& view, const QString& fieldName,
                                                         QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent)
{
    AddLineEdit(fieldName);
    auto* box = static_cast<QBoxLayout*>(layout());
    box->setDirection(QBoxLayout::LeftToRight);
    box->setSpacing(0);
}

void CCorvaneTypeButtonsValueDlg::AddButton(const char* icon, const QString& name, std::function<void()> run)
{
    auto* button = new CEditorButton(this);
    button->setObjectName(name);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setIcon(GetIcon(icon));
    button->setIconSize(QSize(CTheme::kIconSize, CTheme::kIconSize));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setFixedWidth(CTheme::kIconSize + 2 * CTheme::kGrid);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    layout()->addWidget(button);
    connect(button, &QToolButton::clicked, this,
            [this, run = std::move(run)]
            {
                const QPointer<CCorvaneTypeButtonsValueDlg> alive(this);
                {
                    const CKeepOpen keep(*this);
                    run();
                }
                if (alive && isVisible())
                    GetLineEdit()->setFocus();
            });
}

void CCorvaneTypeButtonsValueDlg::ShowText(const QString& text)
{
    GetLineEdit()->setText(LimitText(text, kLongLine));
}
