#include "PropertiesSheet.h"

#include "CorvaneMgr.h"
#include "CorvaneType.h"
#include "Editor.h"
#include "FormatText.h"
#include "ObserverList.h"
#include "PageSheet.h"
#include "PropertiesAttributeDlg.h"
#include "PropertiesCategoryDlg.h"
#include "PropertiesCompareDlg.h"
#include "PropertiesRecordDlg.h"
#include "PropertiesSchemaDlg.h"
#include "PropertiesSourceControlDlg.h"
#include "QtText.h"
#include "TipText.h"
#include "UiModule.h"
#include "WindowPlacement.h"

#include <QTimer>

namespace
{
constexpr qsizetype kMaxTitle = 120;
constexpr QSize kSize(600, 500); // Of a first start.

bool IsThere(const CCorvaneType& attribute)
{
    const CCorvaneAttrib* top = &attribute;
    while (CCorvaneAttrib* parent = top->GetParentAttrib())
    {
        std::ptrdiff_t row = 0;
        if (parent->FindChildAttribute(*top, row) < 0)
            return false;
        top = parent;
    }
    const CCorvaneRecord* record = top->GetParentRecord();
    return record != nullptr && top->GetIndexInRecord() >= 0 && record->IsInTree();
}

// The sheet watches the event line for the end of its object. It looks there in the next turn of the event
// loop, since an event comes in the middle of a change.
class CPropertiesSheet final : public CPageSheet
{
public:
    CPropertiesSheet(IEditorFrame& frame, std::u16string_view name, std::function<bool()> isThere)
        : CPageSheet("PropertiesSheet", ToQString(FormatText(u"Properties for %s", ToText(MakeTitle(name)))),
                     frame.GetWindow()),
          m_Frame(frame), m_Manager(frame.GetEditor().GetApplication().GetManager()),
          m_IsThere(std::move(isThere)), m_pUpdate(new QTimer(this))
    {
        resize(kSize);
        CWindowPlacement(m_Manager.GetContext().m_Profile, u"Dialogs\\Properties").Keep(*this);
        m_pUpdate->setSingleShot(true);
        connect(m_pUpdate, &QTimer::timeout, this, [this] { Update(); });
        m_EventHandle = m_Manager.AddObserver([this](const CCorvaneEvent& event) { return OnEvent(event); });
    }

    [[nodiscard]] SPropertiesContext GetPageContext()
    {
        return {m_Manager, [this](CCorvaneRecord& record) { OpenRecord(record); }};
    }

    void Add(CPropertiesBaseDlg* page, const QString& title)
    {
        m_PropertyPages.push_back(page);
        AddPage(page, title);
    }

    // True when something was changed.
    bool Run()
    {
        exec();
        m_EventHandle.Reset();
        // No window opens below a modal one.
        const CRef<CCorvaneRecord> open = std::exchange(m_pOpen, nullptr);
        Forget();
        if (open && open->IsInTree())
            m_Frame.GetEditor().OpenRecordFrame(open.Get(), true);
        return m_bChanged;
    }

private:
    static QString MakeTitle(std::u16string_view name)
    {
        return LimitText(ToQString(name), kMaxTitle).simplified();
    }

    void OpenRecord(CCorvaneRecord& record)
    {
        m_pOpen = CRef<CCorvaneRecord>(&record);
        accept();
        if (isVisible())
            m_pOpen = nullptr;
    }

    int OnEvent(const CCorvaneEvent& event)
    {
        if (event.GetCode() == ECorvaneEvent::CloseBegin)
            Leave();
        else if (!m_bGone)
            m_pUpdate->start(0);
        return 0;
    }

    void Update()
    {
        if (m_bGone)
            return;
        if (!m_IsThere())
        {
            Leave();
            return;
        }
        for (CSheetPage* page : GetPages())
            if (!page->IsModified())
                page->Refresh();
    }

    void Leave()
    {
        Forget();
        m_pOpen = nullptr;
        reject();
    }

    void Forget()
    {
        m_bGone = true;
        m_IsThere = nullptr;
        for (CPropertiesBaseDlg* page : m_PropertyPages)
            page->Forget();
    }

    bool Apply() override
    {
        const auto isModified = [](const CSheetPage* page) { return page->IsModified(); };
        const auto& pages = GetPages();
        const auto modified = std::count_if(pages.begin(), pages.end(), isModified);
        const bool good = CPageSheet::Apply();
        m_bChanged = m_bChanged || std::count_if(pages.begin(), pages.end(), isModified) < modified;
        return good;
    }

    IEditorFrame& m_Frame;
    CCorvaneMgr& m_Manager;
    std::function<bool()> m_IsThere;
    QTimer* m_pUpdate;
    std::vector<CPropertiesBaseDlg*> m_PropertyPages;
    CRef<CCorvaneRecord> m_pOpen;
    bool m_bChanged = false;
    bool m_bGone = false;
    CObserverHandle m_EventHandle;
};

void AddSchemaPage(CPropertiesSheet& sheet, CCorvaneSchema* schema)
{
    if (schema != nullptr)
        sheet.Add(new CPropertiesSchemaDlg(sheet.GetPageContext(), *schema), QDialog::tr("Schema"));
}

void AddSourceControlPage(CPropertiesSheet& sheet, std::u16string_view path)
{
    sheet.Add(new CPropertiesSourceControlDlg(sheet.GetPageContext(), path), QDialog::tr("Source Control"));
}
} // namespace

bool ShowProperties(IEditorFrame& frame, CCorvaneRecord& record)
{
    CPropertiesSheet sheet(frame, record.GetName(),
                           [keepAlive = CRef<CCorvaneRecord>(&record)] { return keepAlive->IsInTree(); });
    if (record.TestFlag(RECORD_FLAG_COMPARE))
    {
        sheet.Add(new CPropertiesCompareDlg(sheet.GetPageContext(), record), QDialog::tr("Record"));
        return sheet.Run();
    }
    sheet.Add(new CPropertiesRecordDlg(sheet.GetPageContext(), record), QDialog::tr("Record"));
    AddSchemaPage(sheet, record.GetSchema());
    AddSourceControlPage(sheet, record.GetFile());
    return sheet.Run();
}

bool ShowProperties(IEditorFrame& frame, CCorvaneCategory& category)
{
    CPropertiesSheet sheet(frame, category.GetName(),
                           [keepAlive = CRef<CCorvaneCategory>(&category)]
                           { return keepAlive->IsAttached(); });
    sheet.Add(new CPropertiesCategoryDlg(sheet.GetPageContext(), category), QDialog::tr("Category"));
    AddSchemaPage(sheet, category.GetSchema());
    if (category.IsSystem() && category.GetCategoryType() == 0)
        AddSourceControlPage(sheet, category.GetFile());
    return sheet.Run();
}

bool ShowProperties(IEditorFrame& frame, CCorvaneSchema& schema)
{
    CPropertiesSheet sheet(
        frame, schema.GetName(),
        [keepAlive = CRef<CCorvaneSchema>(&schema)]
        { return keepAlive->GetManager().FindSchema(keepAlive->GetName()) == keepAlive.Get(); });
    AddSchemaPage(sheet, &schema);
    AddSourceControlPage(sheet, schema.GetFile());
    return sheet.Run();
}

bool ShowProperties(IEditorFrame& frame, CCorvaneType& attribute)
{
    CPropertiesSheet sheet(frame, attribute.GetName(),
                           [keepAlive = CRef<CCorvaneType>(&attribute)] { return IsThere(*keepAlive); });
    sheet.Add(new CPropertiesAttributeDlg(sheet.GetPageContext(), attribute), QDialog::tr("Attribute"));
    return sheet.Run();
}
