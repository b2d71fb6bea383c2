#include "CorvaneMgr.h"

#include "BuildNumberCache.h"
#include "CategoryNames.h"
#include "Module.h"
#include "NameCompare.h"
#include "Path.h"
#include "PointerIndex.h"
#include "UndoRecorder.h"

CCorvaneMgr::CCorvaneMgr(const CCorvaneContext& context, const CCorvaneTypeMgr& types,
                         const CorvaneSchemaAttribDataMgr& attribData, CSourceGate& gate, IUndoRecorder& undo)
    : m_Context(context), m_Types(types), m_AttribDataTypes(attribData), m_Gate(gate), m_Undo(undo),
      m_pRootIndex(std::make_unique<CCategoryNames>()),
      m_pCategoryFiles(std::make_unique<CPointerIndex<CCorvaneCategory>>()),
      m_pSchemaNames(std::make_unique<CPointerIndex<CCorvaneSchema>>()),
      m_pSchemaFiles(std::make_unique<CPointerIndex<CCorvaneSchema>>()),
      m_pBuildNumbers(std::make_unique<CBuildNumberCache>(context.m_Files, context.m_Modules)),
      m_sToolsDirectory(context.m_Modules.GetProgramDirectory()), m_PerUser(context.m_Files),
      m_LoadParser(context.m_Files)
{
}

CCorvaneMgr::~CCorvaneMgr()
{
    m_Undo.Clear();
    // The release reports every record as deleted; listeners must know that this is no work of the user's.
    if (IsOpen())
        Notify(CCorvaneEvent(ECorvaneEvent::CloseBegin));
    ReleaseTree();
    m_SpecialCategories.clear();
}

CObserverHandle CCorvaneMgr::AddObserver(CObserverList<const CCorvaneEvent&>::FCallback callback)
{
    return m_Observers.Add(std::move(callback));
}

CCorvaneCategory* CCorvaneMgr::AddCategory(CRef<CCorvaneCategory> category)
{
    CCorvaneCategory* parent = category->GetParent();
    if (CCorvaneCategory* taken =
            parent ? parent->FindChild(category->GetName()) : FindRootCategory(category->GetName()))
        return taken;
    if (parent)
        parent->AddChildCategory(*category);
    else
        AddRootCategory(*category);
    Notify(CCorvaneEvent(ECorvaneEvent::CategoryAdded, category.Get()));
    return category.Get();
}

void CCorvaneMgr::AddRootCategory(CCorvaneCategory& category)
{
    category.m_bRoot = true;
    m_pRootIndex->Add(category);
    m_RootCategories.emplace_back(&category);
}

bool CCorvaneMgr::AddSchemaFile(std::u16string_view path)
{
    bool ambiguous = false;
    const std::size_t hash = HashName(path);
    const auto sameFile = [&](const CCorvaneSchema& schema) { return EqualNames(schema.GetFile(), path); };
    if (m_pSchemaFiles->FindOnly(hash, ambiguous, sameFile) || ambiguous)
        return false;
    const CRef<CCorvaneSchema> schema = CCorvaneSchema::CreateFromFile(*this, path, nullptr);
    if (!schema)
        return false;
    m_Schemas.push_back(schema);
    m_pSchemaFiles->Add(hash, *schema);
    m_pSchemaNames->Add(HashName(schema->GetName()), *schema);
    return true;
}

bool CCorvaneMgr::AddRecordFile(std::u16string_view path, CCorvaneCategory& category,
                                const CRecordLayout* layout)
{
    if (category.FindRecordByFile(path))
        return false;
    const CRef<CCorvaneRecord> record = CCorvaneRecord::CreateFromFile(path, category, layout);
    if (!record)
        return false;
    record->GetCategory()->AddRecord(*record);
    Notify(CCorvaneEvent(ECorvaneEvent::RecordAdded, record.Get()));
    return true;
}

void CCorvaneMgr::OnCategoryFiled(CCorvaneCategory& category, std::u16string_view oldFile)
{
    if (!oldFile.empty())
        m_pCategoryFiles->Remove(HashName(oldFile), category);
    if (!category.GetFile().empty())
        m_pCategoryFiles->Add(HashName(category.GetFile()), category);
}

void CCorvaneMgr::OnSchemaNamed(CCorvaneSchema& schema, std::u16string_view oldName)
{
    if (m_pSchemaNames->Remove(HashName(oldName), schema))
        m_pSchemaNames->Add(HashName(schema.GetName()), schema);
}
