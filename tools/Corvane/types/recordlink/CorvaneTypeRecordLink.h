// A RecordLink attribute: each value names another record of the database by its path, or is "<none>".
//
// A value holds the record path (system categories and name) or the display path (virtual categories too);
// the empty text reads as "<none>". Nothing checks a path when it is stored: Validate does, and whether the
// target's schema is allowed.
//
// Every link of a database stands in one list (CRecordLinkList), which brings the operations on records to
// those links that they concern: a delete or a move of a linked record is refused, a delete or a rename is
// repaired.
#pragma once

#include "CorvaneType.h"
#include "recordlink/CorvaneTypeRecordLinkData.h"
#include "recordlink/LinkTarget.h"

#include <cstdint>

class CCorvaneEvent;
class CRecordLinkList;

class CCorvaneTypeRecordLink final : public CCorvaneType
{
public:
    using AttribData = CCorvaneTypeRecordLinkData;
    static constexpr CGuid kTypeGuid{
        {0x34, 0xDE, 0x1C, 0x81, 0x71, 0x6B, 0x40, 0x15, 0xBA, 0xA1, 0xAD, 0x99, 0x44, 0xB9, 0x32, 0x1F}};

    ~CCorvaneTypeRecordLink() override;

    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    [[nodiscard]] std::u16string_view GetValue(std::size_t index) const override;
    // A value that names no record is not sent; a record that is not in the output is sent as 0.
    [[nodiscard]] bool SaveToDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record, std::uint32_t build,
                                      CreatorHandle& handle, std::u16string_view prefix) override;
    [[nodiscard]] bool SaveToOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                      std::u16string_view prefix, std::u16string_view location) override;
    [[nodiscard]] bool SaveToDependency(IDependencySink& sink, std::uint32_t build) override;
    bool Validate(IValidationSink* pCore) override;
    [[nodiscard]] const CGuid& GetTypeGuid() const override { return kTypeGuid; }
    [[nodiscard]] std::u16string_view GetTypeName() const override { return u"RecordLink"; }
    void Assign(const CCorvaneAttrib& source) override;
    [[nodiscard]] CRef<CCorvaneType> Clone(CCorvaneRecord* record) const override;

    // The record that the effective value names; null for "<none>" and for a path that finds nothing.
    [[nodiscard]] CCorvaneRecord* GetRecord(std::size_t index) const;
    // The value, or "<none>" when it names no record.
    void GetRecordName(std::size_t index, std::u16string& out) const;
    // Null only in an attribute that was never initialised.
    [[nodiscard]] const CCorvaneTypeRecordLinkData* GetRecordLinkAttribData() const;

    // This link's part in an operation on the record that `target` tells, in the order of its values, the
    // inherited ones included. Codes 30 and 34 are refused, with a message and a result other than 0, by a
    // link of a record in the tree: a schema's default and a record that only the undo list holds do not
    // stand in the way. Codes 31 and 36 are repaired in every link that has a record.
    int OnManagerEvent(const CCorvaneEvent& event, const CLinkTarget& target);
    // After its record was read again: offers to replace each value that finds nothing by "<none>".
    void AskForLostValues();
    // Whether one of its own values names the record.
    [[nodiscard]] bool OwnsNameOf(const CLinkTarget& target) const;

protected:
    void OnOwnValuesChanged() override;

private:
    friend class CRecordLinkList;

    // The list whose texts the values are, without the default that stands in for a missing one; null when
    // the attribute shows nothing, as a member of a row that its struct hides.
    [[nodiscard]] const CCorvaneValueList* FindShownValues() const;
    [[nodiscard]] bool IsShown() const;
    [[nodiscard]] bool IsRecordInTree() const;
    [[nodiscard]] bool ValidateValue(IValidationSink& core, std::size_t index);
    // The record path of the target, or the value itself when it finds nothing.
    [[nodiscard]] std::u16string GetTargetPath(std::size_t index) const;
    [[nodiscard]] int Refuse(const CLinkTarget& target, std::u16string_view operation) const;
    void Repair(const CLinkTarget& target);
    [[nodiscard]] bool IsLost(std::u16string_view value) const;
    void JoinList(CRecordLinkList& list);

    CRecordLinkList* m_pList = nullptr;
    std::uint32_t m_nSlot = 0; // Place in the list.
    bool m_bChanged = false;   // The list's index has yet to look at the own values.
    bool m_bAccepted = false;  // The list keeps lost values that the user wants to stay.
};
