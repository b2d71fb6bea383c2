#include "TestBuildDlg.h"

#include "DialogParts.h"
#include "QtText.h"
#include "Theme.h"

#include <QBoxLayout>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace
{
// A note in the theme's colour for a warning, whatever theme comes.
class CWarningLabel final : public QLabel
{
public:
    explicit CWarningLabel(const QString& text) : QLabel(text)
    {
        setTextFormat(Qt::PlainText);
        setWordWrap(true);
        ApplyColor();
    }

protected:
    void changeEvent(QEvent* event) override
    {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange)
            ApplyColor();
    }

private:
    void ApplyColor()
    {
        QPalette colors = palette();
        const QColor color = CTheme::Get().GetColor(EThemeColor::Critical);
        // Setting a palette is a change of its own.
        if (colors.color(QPalette::WindowText) == color)
            return;
        colors.setColor(QPalette::WindowText, color);
        setPalette(colors);
    }
};
} // namespace

CTestBuildDlg::CTestBuildDlg(std::u16string_view target, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("TestBuildDlg"));
    setWindowTitle(tr("Test Build"));
    QBoxLayout& layout = MakeDialogLayout(*this);
    AddNote(layout, u"The database has been compiled into the following packed file.  Before submitting this "
                    u"file to source control please test the build to make sure that it is working "
                    u"correctly.\n\nContinue only if the packed file works correctly.");
    auto* path = new QLineEdit(ToQString(target));
    SetNames(*path, "Target", tr("Packed file"));
    path->setReadOnly(true);
    path->setCursorPosition(0);
    path->setToolTip(path->text());
    layout.addWidget(path);
    layout.addWidget(new CWarningLabel(tr("WARNING: Submitting a broken packed file to source control will "
                                          "break the build for the entire team. ")));

    auto* buttons = new QDialogButtonBox;
    QPushButton* goOn = buttons->addButton(tr("&Continue"), QDialogButtonBox::AcceptRole);
    QPushButton* abort = buttons->addButton(tr("&Abort"), QDialogButtonBox::RejectRole);
    SetNames(*goOn, "Continue", tr("Continue"));
    SetNames(*abort, "Abort", tr("Abort"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout.addSpacing(CTheme::kGrid);
    layout.addWidget(buttons);
    // An Enter that was typed too early submits nothing. The dialog must have the button by now.
    abort->setDefault(true);
    abort->setFocus();
    layout.setSizeConstraint(QLayout::SetFixedSize);
}
