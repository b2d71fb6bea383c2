#include "CorvaneTypeListValueDlg.h"

#include "CorvaneTypeView.h"
#include "NameCompare.h"
#include "QtText.h"

#include <QListView>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

namespace
{
constexpr int kMaxShownWords = 10;

// As high as the rows of the list, so that a word is easily hit.
class CWordDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        return QStyledItemDelegate::sizeHint(option, index).expandedTo({0, kListRowHeight});
    }
};
} // namespace

CCorvaneTypeListValueDlg::CCorvaneTypeListValueDlg(CCorvaneTypeView& view, const QStringList& words,
                                                   const QString& objectName, QWidget* parent)
    : CCorvaneTypeValueDlg(view, parent), m_Words(words), m_pWords(new QListView(this))
{
    m_pWords->setObjectName(objectName);
    m_pWords->setAccessibleName(accessibleName());
    m_pWords->setFrameShape(QFrame::NoFrame);
    m_pWords->setUniformItemSizes(true);
    m_pWords->setItemDelegate(new CWordDelegate(m_pWords));
    m_pWords->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_pWords->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pWords->setModel(new QStringListModel(words, m_pWords));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->addWidget(m_pWords);
    connect(m_pWords, &QListView::clicked, this, [this] { Accept(); });
}

void CCorvaneTypeListValueDlg::ShowText(const QString& text)
{
    m_sOther = text;
    const std::u16string wanted = ToText(text);
    const auto found =
        std::find_if(m_Words.begin(), m_Words.end(),
                     [&wanted](const QString& word) { return EqualNames(ToText(word), wanted); });
    if (found == m_Words.end())
        return;
    m_pWords->setCurrentIndex(m_pWords->model()->index(static_cast<int>(found - m_Words.begin()), 0));
}

QString CCorvaneTypeListValueDlg::ReadText() const
{
    // The current word is no choice: the list makes its first one current by getting the focus.
    const QModelIndexList chosen = m_pWords->selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? m_sOther : m_Words[chosen.front().row()];
}

QRect CCorvaneTypeListValueDlg::GetPlacement(const QRect& cell) const
{
    constexpr int kMinWidth = 160;
    const int rows = std::clamp(static_cast<int>(m_Words.size()), 1, kMaxShownWords);
    const QRect surface = parentWidget()->rect();
    const int row = std::max(m_pWords->sizeHintForRow(0), fontMetrics().height());
    QRect place(cell.left(), cell.top(), std::min(cell.width(), std::max(kMinWidth, cell.width() / 2)),
                std::min(rows * row + 2, surface.height()));
    if (place.bottom() > surface.bottom())
        place.moveBottom(surface.bottom());
    return place;
}

void CCorvaneTypeListValueDlg::TakeFocus(const QPoint&)
{
    m_pWords->setFocus();
    m_pWords->scrollTo(m_pWords->currentIndex(), QAbstractItemView::PositionAtCenter);
}
