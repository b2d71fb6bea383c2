#include "PathCombo.h"

#include "DialogParts.h"
#include "Theme.h"

#include <QBoxLayout>
#include <QCompleter>
#include <QEvent>
#include <QToolButton>

namespace
{
constexpr int kVisibleCharacters = 56;
// A field is no place for a text of a megabyte.
constexpr int kLongestPath = 4096;
} // namespace

CPathCombo::CPathCombo(QWidget* parent) : QComboBox(parent)
{
    setEditable(true);
    setInsertPolicy(NoInsert);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kVisibleCharacters);
    lineEdit()->setMaxLength(kLongestPath);
    // Completion inside the field would put text there that nobody has typed.
    completer()->setCompletionMode(QCompleter::PopupCompletion);
}

bool CPathCombo::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(currentText());
    return QComboBox::event(event);
}

void AddWithBrowse(QBoxLayout& layout, QComboBox& field, const char* objectName, std::function<void()> browse)
{
    auto* button = new QToolButton;
    button->setText(QStringLiteral("..."));
    button->setToolTip(QObject::tr("Browse"));
    button->setFocusPolicy(Qt::StrongFocus);
    SetNames(*button, objectName, QObject::tr("Browse for %1").arg(field.accessibleName()));
    QObject::connect(button, &QToolButton::clicked, &field, std::move(browse));
    auto* row = new QHBoxLayout;
    row->setSpacing(CTheme::kGrid);
    row->addWidget(&field, 1);
    row->addWidget(button);
    layout.addLayout(row);
}
