// Calls into a module that was loaded at run time: an exception that leaves one counts as a refusal.
#pragma once

// What `call` returns, or its type's zero when it throws.
template <class Call> [[nodiscard]] auto CallGuarded(Call&& call) -> decltype(call())
{
    try
    {
        return call();
    }
    catch (...)
    {
        return {};
    }
}
