// How the values of one attribute stand in an override text, and which of them are allowed.
//
// A form is made from what the limits file says, which may be anything: no reading or checking trusts it.
#pragma once

#include "OverrideAttribute.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class COverrideCursor;
struct SOverrideError;

// What a check asks the packed database, about the attribute at hand.
class IOverrideUse
{
public:
    virtual ~IOverrideUse() = default;

    // An attribute of the same name holds the word anywhere in the database.
    [[nodiscard]] virtual bool IsWordInUse(std::string_view word) const = 0;
    // An attribute of the same name links to a record of the schema anywhere in the database.
    [[nodiscard]] virtual bool IsSchemaInUse(std::string_view schema) const = 0;
    // The schema of the record with that path; nothing when there is no such record.
    [[nodiscard]] virtual std::optional<std::string_view> FindSchemaOf(std::string_view record) const = 0;
};

class IOverrideForm
{
public:
    virtual ~IOverrideForm() = default;

    // Appends a value as Read takes it. Two values that are written alike are the same value.
    virtual void Write(const SOverrideValue& value, std::string& out) const = 0;
    // Takes one value. False sets the error.
    [[nodiscard]] virtual bool Read(COverrideCursor& cursor, SOverrideValue& value,
                                    SOverrideError& error) const = 0;
    // False sets the error for a value that is not allowed.
    [[nodiscard]] virtual bool Check(const SOverrideValue& value, const IOverrideUse& use,
                                     SOverrideError& error) const = 0;
    // Tells a person what a value is: a phrase, and perhaps further lines.
    virtual std::vector<std::string> Describe() const = 0;
};

// Never null. `attribute` outlives the form.
[[nodiscard]] std::unique_ptr<IOverrideForm> MakeOverrideForm(const SOverrideAttribute& attribute);

// The values with commas between.
[[nodiscard]] std::string WriteOverrideValues(const IOverrideForm& form,
                                              std::span<const SOverrideValue> values);
// Takes all that is left on the line. False sets the error.
[[nodiscard]] bool ReadOverrideValues(const IOverrideForm& form, COverrideCursor& cursor,
                                      std::vector<SOverrideValue>& values, SOverrideError& error);
