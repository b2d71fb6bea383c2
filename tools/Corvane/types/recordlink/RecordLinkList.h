// All links of one database, in the order of their construction, and the way from an event to those that it
// concerns.
//
// An operation on a record asks or tells every link in turn, and the first answer other than 0 ends the
// round. Only links that show one of the record's paths have anything to say, so that a round visits a part
// of the list that surely holds those: the links whose own texts are one of the paths, from an index, and
// from each of them down the records that inherit from it. The rest is not looked at; answers, order and
// effects are those of a round over all.
//
// The index costs nothing until the first round. From then on a change of a value marks its link, and the
// next round looks at the marked ones first.
#pragma once

#include "ObserverList.h"
#include "TypeState.h"
#include "recordlink/LinkTextIndex.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class CCorvaneAttrib;
class CCorvaneEvent;
class CCorvaneMgr;
class CCorvaneRecord;
class CCorvaneTypeRecordLink;
class CLinkTarget;

class CRecordLinkList final : public ITypeState
{
public:
    explicit CRecordLinkList(CCorvaneMgr& manager);
    ~CRecordLinkList() override;
    CRecordLinkList(const CRecordLinkList&) = delete;
    CRecordLinkList& operator=(const CRecordLinkList&) = delete;

    // For the links themselves: constant time each.
    void Join(CCorvaneTypeRecordLink& link);
    void Leave(CCorvaneTypeRecordLink& link);
    void OnValuesChanged(CCorvaneTypeRecordLink& link);
    // Values that find no record and that the user wants to stay as they are.
    void Accept(CCorvaneTypeRecordLink& link, std::u16string_view value);
    [[nodiscard]] bool IsAccepted(const CCorvaneTypeRecordLink& link, std::u16string_view value) const;

    // Calls `visit` with every link, in the order of their construction.
    template <class Visit> void ForEach(Visit visit) const
    {
        for (std::size_t slot = 0; slot < m_Links.size(); ++slot)
        {
            if (CCorvaneTypeRecordLink* link = m_Links[slot])
                visit(*link);
        }
    }

private:
    class CRoundScope;

    int OnManagerEvent(const CCorvaneEvent& event);
    int RunRound(const CCorvaneEvent& event);
    void AskForLostValues(CCorvaneRecord& record);
    // Nobody can answer, or nobody wants to be asked about single records.
    [[nodiscard]] bool IsUnattended() const;
    [[nodiscard]] std::vector<std::uint32_t> FindCandidates(const CLinkTarget& target);
    void AddInheriting(const CCorvaneTypeRecordLink& from, std::unordered_set<std::uint32_t>& found,
                       std::vector<const CCorvaneTypeRecordLink*>& open) const;
    void BringInLine();
    void AddToIndex(const CCorvaneTypeRecordLink& link);
    void DropIndex();
    void Compact();

    CCorvaneMgr& m_Manager;
    std::vector<CCorvaneTypeRecordLink*> m_Links; // Null where a link has left.
    std::size_t m_nLeft = 0;                      // Count of those.
    int m_nRounds = 0;                            // Rounds under way; places must not change meanwhile.
    bool m_bClosing = false;
    bool m_bIndexed = false;
    CLinkTextIndex m_Index;
    std::size_t m_nFreshSize = 0; // Size of the index when it was built.
    std::vector<std::uint32_t> m_Changed;
    std::unordered_map<const CCorvaneTypeRecordLink*, std::vector<std::u16string>> m_Accepted;
    CObserverHandle m_Observer;
};
