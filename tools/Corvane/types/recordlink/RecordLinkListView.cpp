#include "recordlink/RecordLinkListView.h"

#include "CorvaneCategory.h"
#include "CorvaneRecord.h"
#include "IconSet.h"
#include "QtText.h"
#include "Theme.h"
#include "recordlink/LinkCategoryTree.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QListView>
#include <QTreeView>
#include <algorithm>
#include <utility>
#include <vector>

namespace
{
constexpr int kNameWidth = 184; // Of a column of names; a longer one is cut and has a tip.

// As much of a text as a row can show of it, on one line.
QString MakeCellText(std::u16string_view text)
{
    constexpr std::size_t kMaxCell = 500;
    QString cut = ToQString(text.substr(0, kMaxCell));
    for (QChar& unit : cut)
    {
        if (unit.unicode() < u' ')
            unit = u' ';
    }
    return cut;
}
} // namespace

class CRecordLinkListModel final : public QAbstractTableModel
{
public:
    struct SEntry
    {
        std::size_t m_nNode = CLinkCategoryTree::kNone;
        CRef<CCorvaneRecord> m_pRecord; // Null for a category.
        CRef<CCorvaneCategory> m_pCategory;
        std::u16string m_sName; // Of a category.

        [[nodiscard]] const std::u16string& GetName() const
        {
            return m_pRecord ? m_pRecord->GetName() : m_sName;
        }
        [[nodiscard]] std::u16string_view GetComment() const
        {
            if (m_pRecord)
                return m_pRecord->GetComment();
            return m_pCategory ? std::u16string_view(m_pCategory->GetComment()) : std::u16string_view();
        }
    };

    explicit CRecordLinkListModel(QObject* parent)
        : QAbstractTableModel(parent), m_RecordIcon(GetIcon("record")),
          m_SystemIcon(GetIcon("category-system")), m_VirtualIcon(GetIcon("category-virtual"))
    {
    }

    void Fill(const CLinkCategoryTree& tree, std::size_t node)
    {
        beginResetModel();
        m_Entries.clear();
        for (const std::size_t child : tree.GetNode(node).m_Children)
            m_Entries.push_back(
                {child, nullptr, tree.GetNode(child).m_pCategory, tree.GetNode(child).m_sName});
        if (const CCorvaneCategory* category = tree.GetNode(node).m_pCategory.Get())
        {
            m_Entries.reserve(m_Entries.size() + category->GetRecords().size());
            for (const CRef<CCorvaneRecord>& record : category->GetRecords())
                m_Entries.push_back({CLinkCategoryTree::kNone, record, nullptr, {}});
        }
        SortEntries();
        endResetModel();
    }

    [[nodiscard]] const SEntry* GetEntry(const QModelIndex& index) const
    {
        return index.isValid() ? &m_Entries[m_Order[static_cast<std::size_t>(index.row())]] : nullptr;
    }
    template <class Test> [[nodiscard]] int FindRow(Test test) const
    {
        const auto found = std::find_if(m_Order.begin(), m_Order.end(),
                                        [&](std::size_t entry) { return test(m_Entries[entry]); });
        return found != m_Order.end() ? static_cast<int>(found - m_Order.begin()) : -1;
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_Order.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : 2;
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return section == 0 ? QStringLiteral("Name") : QStringLiteral("Comment");
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        const SEntry* entry = GetEntry(index);
        if (entry == nullptr)
            return {};
        const QString text =
            MakeCellText(index.column() == 0 ? std::u16string_view(entry->GetName()) : entry->GetComment());
        if (role == Qt::DisplayRole)
            return text;
        if (role == Qt::ToolTipRole) // Text of the database is no markup.
            return text.isEmpty() ? QVariant()
                                  : QVariant(QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()));
        if (role == Qt::DecorationRole && index.column() == 0)
            return GetEntryIcon(*entry);
        return {};
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return QAbstractTableModel::flags(index) | Qt::ItemNeverHasChildren;
    }
    void sort(int column, Qt::SortOrder order) override
    {
        m_nSortColumn = column;
        m_SortOrder = order;
        Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
        const QModelIndexList before = persistentIndexList();
        std::vector<std::size_t> entries;
        for (const QModelIndex& index : before)
            entries.push_back(m_Order[static_cast<std::size_t>(index.row())]);
        SortEntries();
        QModelIndexList after;
        for (qsizetype i = 0; i < before.size(); ++i)
        {
            const auto place =
                std::find(m_Order.begin(), m_Order.end(), entries[static_cast<std::size_t>(i)]);
            after.push_back(index(static_cast<int>(place - m_Order.begin()), before[i].column()));
        }
        changePersistentIndexList(before, after);
        Q_EMIT layoutChanged({}, VerticalSortHint);
    }

private:
    [[nodiscard]] const QIcon& GetEntryIcon(const SEntry& entry) const
    {
        if (entry.m_pRecord)
            return m_RecordIcon;
        return entry.m_pCategory && !entry.m_pCategory->IsSystem() ? m_VirtualIcon : m_SystemIcon;
    }
    void SortEntries()
    {
        m_Order.resize(m_Entries.size());
        for (std::size_t i = 0; i < m_Order.size(); ++i)
            m_Order[i] = i;
        if (m_nSortColumn < 0)
            return;
        const auto compare = [this](const SEntry& a, const SEntry& b)
        {
            return m_nSortColumn == 0 ? ZRStrICmp(a.GetName(), b.GetName())
                                      : ZRStrICmp(MakeShort(a.GetComment()), MakeShort(b.GetComment()));
        };
        std::stable_sort(m_Order.begin(), m_Order.end(),
                         [&](std::size_t a, std::size_t b)
                         {
                             const bool isRecord = m_Entries[a].m_pRecord != nullptr;
                             if (isRecord != (m_Entries[b].m_pRecord != nullptr))
                                 return !isRecord;
                             const int result = compare(m_Entries[a], m_Entries[b]);
                             return m_SortOrder == Qt::AscendingOrder ? result < 0 : result > 0;
                         });
    }
    // A comment may be as long as it likes; what tells two apart stands at the beginning.
    static std::u16string_view MakeShort(std::u16string_view text)
    {
        constexpr std::size_t kMaxCompared = 200;
        return text.data() ? text.substr(0, kMaxCompared) : std::u16string_view(u"");
    }

    std::vector<SEntry> m_Entries;    // In the order of the database.
    std::vector<std::size_t> m_Order; // Entries by row.
    int m_nSortColumn = -1;
    Qt::SortOrder m_SortOrder = Qt::AscendingOrder;
    QIcon m_RecordIcon;
    QIcon m_SystemIcon;
    QIcon m_VirtualIcon;
};

CRecordLinkListView::CRecordLinkListView(QWidget* parent)
    : QStackedWidget(parent), m_pModel(new CRecordLinkListModel(this)), m_pDetails(new QTreeView(this)),
      m_pNames(new QListView(this))
{
    setObjectName(QStringLiteral("RecordList"));
    Prepare(*m_pDetails, QStringLiteral("RecordDetails"));
    m_pDetails->setRootIsDecorated(false);
    m_pDetails->setUniformRowHeights(true);
    m_pDetails->setAllColumnsShowFocus(true);
    m_pDetails->header()->setSortIndicatorClearable(true);
    m_pDetails->header()->setSortIndicator(-1, Qt::AscendingOrder);
    m_pDetails->setSortingEnabled(true);
    Prepare(*m_pNames, QStringLiteral("RecordNames"));
    m_pNames->setFlow(QListView::TopToBottom);
    m_pNames->setWrapping(true);
    m_pNames->setUniformItemSizes(true);
    m_pNames->setGridSize(QSize(kNameWidth, CTheme::kRowHeight));
    m_pNames->setResizeMode(QListView::Adjust);
    m_pNames->setSelectionModel(m_pDetails->selectionModel());
    connect(m_pDetails->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current)
            {
                const auto* entry = m_pModel->GetEntry(current);
                if (!m_bSelecting && entry && entry->m_pRecord && m_OnSelectRecord)
                    m_OnSelectRecord(*entry->m_pRecord);
            });
}

CRecordLinkListView::~CRecordLinkListView() = default;

void CRecordLinkListView::Prepare(QAbstractItemView& view, const QString& name)
{
    view.setObjectName(name);
    view.setAccessibleName(QStringLiteral("Records"));
    view.setModel(m_pModel);
    view.setSelectionMode(QAbstractItemView::SingleSelection);
    view.setSelectionBehavior(QAbstractItemView::SelectRows);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    view.setTextElideMode(Qt::ElideRight);
    view.setTabKeyNavigation(false);
    view.installEventFilter(this);
    connect(&view, &QAbstractItemView::doubleClicked, this,
            [this](const QModelIndex& index) { Activate(index); });
    addWidget(&view);
}

bool CRecordLinkListView::eventFilter(QObject* object, QEvent* event)
{
    // Enter is for the row; the dialog's default button would get it too.
    if (event->type() != QEvent::KeyPress)
        return QStackedWidget::eventFilter(object, event);
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if ((key != Qt::Key_Return && key != Qt::Key_Enter) || !GetView().currentIndex().isValid())
        return QStackedWidget::eventFilter(object, event);
    Activate(GetView().currentIndex());
    return true;
}

void CRecordLinkListView::Activate(const QModelIndex& index)
{
    const auto* entry = m_pModel->GetEntry(index);
    if (entry == nullptr)
        return;
    // What is called fills the list anew or ends the dialog.
    const CRef<CCorvaneRecord> record = entry->m_pRecord;
    const std::size_t node = entry->m_nNode;
    if (record && m_OnTakeRecord)
        m_OnTakeRecord(*record);
    else if (!record && m_OnOpenCategory)
        m_OnOpenCategory(node);
}

void CRecordLinkListView::SetNode(const CLinkCategoryTree& tree, std::size_t node)
{
    m_pModel->Fill(tree, node);
    GetView().scrollToTop();
}

CCorvaneRecord* CRecordLinkListView::GetRecord() const
{
    const auto* entry = m_pModel->GetEntry(GetView().currentIndex());
    return entry ? entry->m_pRecord.Get() : nullptr;
}

bool CRecordLinkListView::SelectRecord(const CCorvaneRecord& record)
{
    return Select(m_pModel->FindRow([&](const auto& entry) { return entry.m_pRecord.Get() == &record; }));
}

bool CRecordLinkListView::SelectNode(std::size_t node)
{
    return Select(m_pModel->FindRow([&](const auto& entry) { return entry.m_nNode == node; }));
}

bool CRecordLinkListView::Select(int row)
{
    if (row < 0)
        return false;
    m_bSelecting = true;
    GetView().setCurrentIndex(m_pModel->index(row, 0));
    m_bSelecting = false;
    ScrollToCurrent();
    return true;
}

void CRecordLinkListView::ScrollToCurrent()
{
    GetView().scrollTo(GetView().currentIndex(), QAbstractItemView::PositionAtCenter);
}

void CRecordLinkListView::Enter()
{
    GetView().setFocus();
    if (!GetView().currentIndex().isValid() && m_pModel->rowCount() > 0)
        GetView().setCurrentIndex(m_pModel->index(0, 0));
}

void CRecordLinkListView::SetDetails(bool details)
{
    const bool hadFocus = GetView().hasFocus();
    setCurrentWidget(details ? static_cast<QWidget*>(m_pDetails) : m_pNames);
    setFocusProxy(&GetView());
    if (hadFocus)
        GetView().setFocus();
    ScrollToCurrent();
}

bool CRecordLinkListView::IsDetails() const
{
    return currentWidget() == m_pDetails;
}

QHeaderView& CRecordLinkListView::GetHeader() const
{
    return *m_pDetails->header();
}

QAbstractItemView& CRecordLinkListView::GetView() const
{
    return IsDetails() ? static_cast<QAbstractItemView&>(*m_pDetails) : *m_pNames;
}
