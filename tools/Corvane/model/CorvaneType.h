// The typed base of every concrete attribute class: the frame around value changes, the outputs' common
// part, and the views that show the attribute. A type derives from it and adds how its texts are read,
// checked and written; it never names a widget.
#pragma once

#include "CorvaneAttrib.h"

#include <functional>
#include <type_traits>

// A view that shows one attribute in one list; see CCorvaneType::AddView.
class ICorvaneTypeView : public CCorvaneRef
{
public:
    // Identity of the list that the view belongs to.
    [[nodiscard]] virtual const void* GetOwner() const = 0;
    // Message 4: a value was changed from outside the view.
    virtual void OnNotify(int message, CCorvaneAttrib& attrib) = 0;
};

inline constexpr int kViewValueChanged = 4;

class CCorvaneType : public CCorvaneAttrib
{
public:
    [[nodiscard]] bool Init(std::u16string_view defaultText, CCorvaneSchemaAttribData& data) override;
    void Clear() override;
    // The frame: gate, restore point, modified mark, change, notification; RemoveValue has no restore point.
    [[nodiscard]] bool AddValue(std::u16string_view text) override;
    [[nodiscard]] bool SetValue(std::size_t index, std::u16string_view text) override;
    [[nodiscard]] bool RemoveValue(std::size_t index) override;

    // The word shown as the attribute's type, and the one written to a schema.
    [[nodiscard]] virtual std::u16string_view GetTypeName() const = 0;
    [[nodiscard]] virtual std::u16string_view GetSchemaTypeName() const { return GetTypeName(); }
    // A copy bound to `record`.
    [[nodiscard]] virtual CRef<CCorvaneType> Clone(CCorvaneRecord* record) const = 0;

    // Views, in the order of their creation.
    void AddView(CRef<ICorvaneTypeView> view);
    void DestroyViewsOfOwner(const void* owner);
    void DestroyView(const ICorvaneTypeView& view);
    [[nodiscard]] ICorvaneTypeView* GetViewOfOwner(const void* owner) const;
    // Tells every view but the sender.
    void NotifyViews(const ICorvaneTypeView* sender, int message);

    // True unless locked or inherited; the lock of a struct is one of its members too.
    [[nodiscard]] bool IsEditable() const;

    // What a user's commands change besides the values (CorvaneType_Marks). Each passes the gate, marks the
    // record modified and tells the views; none can be undone. False changed nothing. What stands already is
    // true, with nobody asked.
    [[nodiscard]] bool EditComment(std::u16string_view text);
    // A lock bears the user's name. Taking one away asks first unless `confirmed`; a silent run is not asked.
    [[nodiscard]] bool EditLock(bool lock, bool confirmed);
    // Needs a record with a parent. A struct takes its members along.
    [[nodiscard]] bool CanEditInherit() const;
    [[nodiscard]] bool EditInherit(bool inherit);
    // For commands, these three are open while IsEditable.
    [[nodiscard]] bool EditOverride(bool on);
    [[nodiscard]] bool EditTodo(bool on);
    [[nodiscard]] bool EditPlaceHolder(bool on);

protected:
    // The text that a typed reader parses: the effective value, or for an index past the end the first value
    // of the default.
    [[nodiscard]] std::u16string_view GetTypedText(std::size_t index) const;
    // Tells that a schema's default is bad; `text` is the type's whole message.
    void TellInvalidDefault(const CCorvaneSchemaAttribData& data, std::u16string_view text) const;

    // Reports that the record needs `resource`, a thing of the given kind ("File", "Record" and so on).
    // False, with an assertion, for an attribute that lies in no record.
    [[nodiscard]] bool AddDependency(IDependencySink& sink, std::u16string_view resource,
                                     std::u16string_view kind) const;

    // Creates the attribute with the effective count under "prefix.name"; 0 is a refusal.
    [[nodiscard]] CreatorHandle CreateInDatabase(IDatabaseCreatorMgr& creator, CreatorHandle record,
                                                 EDatabaseValueType type, EDatabaseValueKind kind,
                                                 std::u16string_view prefix) const;
    // The same for the override output, with all checks that come before it; 0 is a refusal. `typeWord` and
    // `accessor` (the attribute data's accessor, named by the assertion) are the type's.
    [[nodiscard]] CreatorHandle CreateInOverride(IDatabaseCreatorUnpackedMgr* mgr, CreatorHandle database,
                                                 EDatabaseValueType type, const char* typeWord,
                                                 const char* accessor, std::u16string_view prefix,
                                                 std::u16string_view location) const;
    // Hands every effective value to an output by its index: `send` returns nothing, or false for a refusal
    // that ends it. False also for a handle of 0.
    template <class Send> [[nodiscard]] bool SendValues(CreatorHandle handle, Send send) const
    {
        if (handle == 0)
            return false;
        const std::size_t count = GetValueCount();
        for (std::size_t i = 0; i < count; ++i)
        {
            if constexpr (std::is_void_v<decltype(send(i))>)
                send(i);
            else if (!send(i))
                return false;
        }
        return true;
    }
    // Makes a typed copy; for the Clone of each concrete class.
    template <class T> [[nodiscard]] CRef<CCorvaneType> CloneAs(CCorvaneRecord* record) const
    {
        CRef<CCorvaneType> copy(new T);
        copy->Assign(*this);
        copy->SetParentRecord(record);
        return copy;
    }

private:
    [[nodiscard]] bool ConfirmUnlock() const;
    // The frame around a change of a mark; `confirm` may still refuse it once the gate is passed.
    [[nodiscard]] bool EditMark(bool stands, const std::function<void()>& change,
                                const std::function<bool()>& confirm = {});
};

// The creation function of a type: a template instance that is its own default. A class that serves several
// words has one function a word, which differ in what they hand to its constructor.
template <class T, auto... Arguments>
CRef<CCorvaneType> CreateCorvaneType(std::u16string_view defaultText, CCorvaneSchemaAttribData& attribData,
                                     CCorvaneRecord* parentRecord)
{
    CRef<CCorvaneType> instance(new T(Arguments...));
    instance->SetParentRecord(parentRecord);
    instance->SetDefaultRecord(instance.Get());
    if (!instance->Init(defaultText, attribData))
        return nullptr;
    return instance;
}
