// Attribute data of a RecordLink: which schemas a target may have, and the categories of the tree that hold
// records of them.
//
// The pieces of the Data text are names of schemas: "public X" (or X alone) allows X and all schemas that
// derive from it, "private X" only X. A name that finds no schema is ignored; without any piece no record is
// allowed. Names can be found only when all schemas are there, so that the lists are filled when a load of
// schemas ends, and at once by an object that is made later. They follow the tree from then on, and are empty
// while no database is open.
#pragma once

#include "CorvaneSchemaAttribData.h"
#include "ObserverList.h"

#include <span>
#include <unordered_set>
#include <vector>

class CCorvaneCategory;
class CCorvaneEvent;

class CCorvaneTypeRecordLinkData final : public CCorvaneSchemaAttribData
{
public:
    explicit CCorvaneTypeRecordLinkData(const SAttribDataConstruct& construct);

    void ParseDataToken(std::u16string_view token) override;
    [[nodiscard]] CRef<CCorvaneSchemaAttribData> Clone() const override;

    // A category of an allowed schema enters the list once. The result is whether it was entered, or was
    // there to be removed. Null fires an assertion.
    bool AddCategory(CCorvaneCategory* pCategory);
    bool RemoveCategory(CCorvaneCategory* pCategory);

    [[nodiscard]] bool IsAllowed(const CCorvaneSchema& schema) const { return m_SchemaSet.contains(&schema); }
    // In the order of the Data text; schemas that derive follow the one that they were allowed with.
    [[nodiscard]] std::span<CCorvaneSchema* const> GetSchemaList() const { return m_SchemaList; }
    // In the order in which they came into the tree.
    [[nodiscard]] std::span<CCorvaneCategory* const> GetCategoryList() const { return m_CategoryList; }

private:
    CCorvaneTypeRecordLinkData(const CCorvaneTypeRecordLinkData& other);

    int OnManagerEvent(const CCorvaneEvent& event);
    void Listen();
    void Clear();
    void FillLists();
    void AllowSchema(CCorvaneSchema& schema);
    // The category and all that lies below it.
    void AddTree(CCorvaneCategory& category);
    void RemoveTree(CCorvaneCategory& category);

    std::vector<CCorvaneSchema*> m_SchemaList;
    std::unordered_set<const CCorvaneSchema*> m_SchemaSet;
    std::vector<CCorvaneCategory*> m_CategoryList;
    std::unordered_set<const CCorvaneCategory*> m_CategorySet;
    CObserverHandle m_Observer;
};
