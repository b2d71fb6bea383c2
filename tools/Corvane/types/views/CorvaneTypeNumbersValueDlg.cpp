#include "views/CorvaneTypeNumbersValueDlg.h"

#include "Theme.h"
#include "views/CorvaneTypeNumbersView.h"

#include <QHBoxLayout>
#include <QLabel>

void CCorvaneTypeNumbersValueDlg::AddField(const QString& name, const QString& label, FNumberRule rule,
                                           bool shown)
{
    auto* column = new QWidget(this);
    auto* field = new CNumberEdit(std::move(rule), column);
    field->setObjectName(name);
    field->setAccessibleName(accessibleName() + u' ' + label);
    field->setFrame(false);
    auto* text = new QLabel(label, column);
    text->setForegroundRole(QPalette::PlaceholderText);
    text->setBuddy(field);
    auto* box = new QHBoxLayout(column);
    box->setContentsMargins(CTheme::kGrid, 0, 0, 0);
    box->setSpacing(CTheme::kGrid / 2);
    box->addWidget(text);
    box->addWidget(field, 1);
    m_Fields.push_back(field);
    column->setVisible(shown);
    if (shown)
        m_Columns.push_back(column);
}

void CCorvaneTypeNumbersValueDlg::TakeFocus(const QPoint& click)
{
    std::size_t index = 0;
    for (std::size_t i = 0; i < m_Columns.size(); ++i)
    {
        if (m_Columns[i]->geometry().contains(click))
            index = i;
    }
    m_Fields[index]->setFocus();
    m_Fields[index]->selectAll();
}

void CCorvaneTypeNumbersValueDlg::resizeEvent(QResizeEvent* event)
{
    CCorvaneTypeValueDlg::resizeEvent(event);
    const QRect inner = rect().adjusted(1, 1, -1, -1);
    const int count = static_cast<int>(m_Columns.size());
    for (int i = 0; i < count; ++i)
        m_Columns[static_cast<std::size_t>(i)]->setGeometry(GetNumberRect(inner, i, count));
}
