#include "time/CorvaneTypeTimeValueDlg.h"

#include "NumberText.h"
#include "QtText.h"
#include "time/CorvaneTypeTimeData.h"
#include "time/TimeText.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <limits>

CCorvaneTypeTimeValueDlg::CCorvaneTypeTimeValueDlg(CCorvaneTypeView& view, const CCorvaneTypeTimeData* rule,
                                                   QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent), m_pRule(rule), m_pLong(new QLabel(this))
{
    QLineEdit& line = AddLineEdit(QStringLiteral("TimeValue"));
    line.setFixedWidth(kTimeLongOffset);
    m_pLong->setObjectName(QStringLiteral("TimeLong"));
    m_pLong->setTextFormat(Qt::PlainText);
    m_pLong->setIndent(2); // As the list draws it.
    auto* box = static_cast<QBoxLayout*>(layout());
    box->setDirection(QBoxLayout::LeftToRight);
    box->setSpacing(0);
    box->addWidget(m_pLong, 1);
    connect(&line, &QLineEdit::textChanged, this,
            [this] { m_pLong->setText(ToQString(FormatTimeLong(ReadTime()))); });
}

QString CCorvaneTypeTimeValueDlg::ReadText() const
{
    return ToQString(FormatInteger(ReadTime()));
}

std::int32_t CCorvaneTypeTimeValueDlg::ReadTime() const
{
    const std::int32_t time = ParseInteger(ToText(GetLineEdit()->text()));
    if (time >= 0 || (m_pRule && m_pRule->IsNegativeAllowed()))
        return time;
    return time == std::numeric_limits<std::int32_t>::min() ? std::numeric_limits<std::int32_t>::max()
                                                            : -time;
}
