#include "WindowMeasurement.h"

#include "CommandSet.h"
#include "Commands.h"
#include "CorvaneListView.h"
#include "CorvaneListViewList.h"
#include "CorvaneTreeModel.h"
#include "CorvaneTreeView.h"
#include "DatabaseGenerator.h"
#include "EditorSession.h"
#include "MainFrame.h"
#include "QtFileDialogs.h"
#include "TreeControl.h"
#include "TreeFiltering.h"
#include "WindowPump.h"
#include "host/SilentQuestions.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <malloc.h>
#include <sstream>
#include <vector>

namespace
{
using CClock = std::chrono::steady_clock;

constexpr std::size_t kOpens = 500;
constexpr std::size_t kEdits = 200;
constexpr std::size_t kLargeCategories = 20;
constexpr std::size_t kLargeRecords = 5000;

double GetMs(CClock::time_point since)
{
    return std::chrono::duration<double, std::milli>(CClock::now() - since).count();
}

double GetHeapBytes()
{
    return static_cast<double>(::mallinfo2().uordblks);
}

// Everything that follows from what was just done, painted.
void Settle()
{
    for (int i = 0; i < 3; ++i)
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

SWait Summarise(std::vector<double>& times)
{
    std::sort(times.begin(), times.end());
    SWait wait;
    wait.m_nMedian = times[times.size() / 2];
    wait.m_nP99 = times[std::min(times.size() - 1, times.size() * 99 / 100)];
    wait.m_nMost = times.back();
    return wait;
}

// Steps of the measurement over one main window.
class CWindowRun
{
public:
    CWindowRun() : m_Session(m_Questions), m_Dialogs(m_Session.GetContext().m_Files) {}

    [[nodiscard]] bool Open(const std::filesystem::path& tree);
    void MeasureTree();
    void MeasureOpens();
    void MeasureExpands();
    [[nodiscard]] bool MeasureEdits();
    void MeasureFilter();
    [[nodiscard]] const SWindowMeasurement& GetResult() const { return m_Result; }

private:
    [[nodiscard]] CCorvaneMgr& GetManager() { return m_Session.GetManager(); }
    void OpenRecords(std::size_t first, std::size_t count, std::vector<double>* times);
    [[nodiscard]] std::vector<CCorvaneCategory*> AddLargeCategories();
    [[nodiscard]] bool Edit(CCorvaneType& attrib, const QString& text);
    void TypeLetter(char letter);

    CSilentQuestions m_Questions;
    CEditorSession m_Session;
    CWindowPump m_Pump;
    CQtFileDialogs m_Dialogs;
    CMainFrame m_Frame{m_Session, m_Pump, m_Dialogs};
    std::vector<CCorvaneRecord*> m_Records;
    SWindowMeasurement m_Result;
};

bool CWindowRun::Open(const std::filesystem::path& tree)
{
    CClock::time_point loaded;
    // The panes are told of the end of the load as well, and what they do there counts.
    const CObserverHandle handle = GetManager().AddObserver(
        [&](const CCorvaneEvent& event)
        {
            if (event.GetCode() == ECorvaneEvent::LoadEnd)
                loaded = CClock::now();
            return 0;
        });
    m_Frame.resize(1200, 800);
    m_Frame.show();
    Settle();
    m_Frame.OpenDatabase((tree / kGeneratedRoot).u16string());
    Settle();
    m_Result.m_nUsableMs = GetMs(loaded);
    GetManager().EnumerateRecords(
        [this](CCorvaneRecord& record)
        {
            m_Records.push_back(&record);
            return true;
        });
    return !m_Records.empty();
}

void CWindowRun::MeasureTree()
{
    const double before = GetHeapBytes();
    const CCorvaneTreeModel model(GetManager(), nullptr);
    m_Result.m_nTreeBytes = (GetHeapBytes() - before) / static_cast<double>(m_Records.size());
}

void CWindowRun::OpenRecords(std::size_t first, std::size_t count, std::vector<double>* times)
{
    for (std::size_t i = first; i < first + count; ++i)
    {
        CCorvaneRecord* record = m_Records[i * 7919 % m_Records.size()];
        const CClock::time_point start = CClock::now();
        m_Frame.ShowRecord(record, true);
        Settle();
        if (times != nullptr)
            times->push_back(GetMs(start));
    }
}

void CWindowRun::MeasureOpens()
{
    std::vector<double> times;
    OpenRecords(0, kOpens, &times);
    m_Result.m_Open = Summarise(times);
    const double before = GetHeapBytes();
    OpenRecords(kOpens, kOpens, nullptr);
    m_Result.m_nGrowthBytes = (GetHeapBytes() - before) / static_cast<double>(kOpens);
}

// As if they came from the disk, so that no name is asked for.
std::vector<CCorvaneCategory*> CWindowRun::AddLargeCategories()
{
    GetManager().Notify(CCorvaneEvent(ECorvaneEvent::ReloadBegin));
    std::vector<CCorvaneCategory*> categories;
    for (std::size_t i = 0; i < kLargeCategories; ++i)
    {
        CCorvaneCategory* category = GetManager().InsertCategory(nullptr, m_Records.front()->GetSchema());
        for (std::size_t k = 0; k < kLargeRecords; ++k)
            static_cast<void>(GetManager().InsertRecord(category));
        categories.push_back(category);
    }
    GetManager().Notify(CCorvaneEvent(ECorvaneEvent::ReloadEnd));
    Settle();
    return categories;
}

void CWindowRun::MeasureExpands()
{
    std::vector<double> times;
    CCorvaneTreeView& view = m_Frame.GetTreeView();
    for (CCorvaneCategory* category : AddLargeCategories())
    {
        const QModelIndex index = view.GetModel().Locate(CTreeItem(*category));
        view.GetTree().scrollTo(index);
        Settle();
        const CClock::time_point start = CClock::now();
        view.GetTree().expand(index);
        Settle();
        times.push_back(GetMs(start));
        view.GetTree().collapse(index);
    }
    m_Result.m_Expand = Summarise(times);
}

bool CWindowRun::Edit(CCorvaneType& attrib, const QString& text)
{
    CCorvaneListView& list = m_Frame.GetListView();
    if (!list.SelectAttribute(attrib, 0))
        return false;
    m_Frame.GetCommandSet().Run(ID_EDIT);
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (field == nullptr || !list.GetList().IsEditing())
        return false;
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
    Settle();
    return !list.GetList().IsEditing();
}

bool CWindowRun::MeasureEdits()
{
    m_Frame.activateWindow();
    m_Frame.ActivateList();
    std::vector<double> times;
    for (std::size_t i = 0; i < kEdits; ++i)
    {
        m_Frame.ShowRecord(m_Records[i * 104729 % m_Records.size()], true);
        Settle();
        for (const CRef<CCorvaneAttrib>& attrib :
             m_Frame.GetListView().GetList().GetRecord()->GetAttributeList())
        {
            auto& type = static_cast<CCorvaneType&>(*attrib);
            if (type.GetTypeName() != u"Integer" || !type.IsEditable() || type.GetValueCount() == 0)
                continue;
            const CClock::time_point start = CClock::now();
            if (!Edit(type, QString::number(i % 90 + 10)))
                return false;
            times.push_back(GetMs(start));
            break;
        }
    }
    if (times.empty())
        return false;
    m_Result.m_Edit = Summarise(times);
    return true;
}

// A key comes whenever it likes: what is waited for is the longest thing that runs between two looks at the
// queue.
void CWindowRun::TypeLetter(char letter)
{
    CCorvaneTreeView& view = m_Frame.GetTreeView();
    const CClock::time_point start = CClock::now();
    QTest::keyClick(&view.GetFilterEdit(), letter);
    m_Result.m_nSliceMs = std::max(m_Result.m_nSliceMs, GetMs(start));
    while (view.GetFiltering().IsBusy())
    {
        const CClock::time_point slice = CClock::now();
        QCoreApplication::processEvents();
        m_Result.m_nSliceMs = std::max(m_Result.m_nSliceMs, GetMs(slice));
    }
    m_Result.m_nFilterMs = std::max(m_Result.m_nFilterMs, GetMs(start));
}

void CWindowRun::MeasureFilter()
{
    for (const char letter : {'r', 'e', 'c', 'o', '1'})
        TypeLetter(letter);
    m_Frame.GetTreeView().GetFilterEdit().clear();
    Settle();
}

struct SField
{
    const char* m_pName;
    double& (*m_Get)(SWindowMeasurement&);
};

constexpr SField kFields[] = {
    {"usable", [](SWindowMeasurement& m) -> double& { return m.m_nUsableMs; }},
    {"open-median", [](SWindowMeasurement& m) -> double& { return m.m_Open.m_nMedian; }},
    {"open-p99", [](SWindowMeasurement& m) -> double& { return m.m_Open.m_nP99; }},
    {"open-most", [](SWindowMeasurement& m) -> double& { return m.m_Open.m_nMost; }},
    {"expand-median", [](SWindowMeasurement& m) -> double& { return m.m_Expand.m_nMedian; }},
    {"expand-p99", [](SWindowMeasurement& m) -> double& { return m.m_Expand.m_nP99; }},
    {"expand-most", [](SWindowMeasurement& m) -> double& { return m.m_Expand.m_nMost; }},
    {"edit-median", [](SWindowMeasurement& m) -> double& { return m.m_Edit.m_nMedian; }},
    {"edit-p99", [](SWindowMeasurement& m) -> double& { return m.m_Edit.m_nP99; }},
    {"edit-most", [](SWindowMeasurement& m) -> double& { return m.m_Edit.m_nMost; }},
    {"slice", [](SWindowMeasurement& m) -> double& { return m.m_nSliceMs; }},
    {"filter", [](SWindowMeasurement& m) -> double& { return m.m_nFilterMs; }},
    {"tree-bytes", [](SWindowMeasurement& m) -> double& { return m.m_nTreeBytes; }},
    {"growth-bytes", [](SWindowMeasurement& m) -> double& { return m.m_nGrowthBytes; }},
};
} // namespace

std::optional<SWindowMeasurement> MeasureWindows(const std::filesystem::path& tree)
{
    CWindowRun run;
    if (!run.Open(tree))
    {
        std::fputs("The database could not be opened.\n", stderr);
        return std::nullopt;
    }
    run.MeasureTree();
    run.MeasureOpens();
    if (!run.MeasureEdits())
    {
        std::fputs("A value could not be edited.\n", stderr);
        return std::nullopt;
    }
    run.MeasureFilter();
    run.MeasureExpands();
    return run.GetResult();
}

std::string FormatWindowMeasurement(const SWindowMeasurement& measurement)
{
    SWindowMeasurement copy = measurement;
    std::ostringstream out;
    for (const SField& field : kFields)
        out << field.m_pName << ' ' << field.m_Get(copy) << '\n';
    return out.str();
}

std::optional<SWindowMeasurement> ParseWindowMeasurement(std::string_view text)
{
    std::istringstream in{std::string(text)};
    SWindowMeasurement measurement;
    for (const SField& field : kFields)
    {
        std::string name;
        if (!(in >> name >> field.m_Get(measurement)) || name != field.m_pName)
            return std::nullopt;
    }
    return measurement;
}
