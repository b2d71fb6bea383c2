// What all attributes of one type share in one database, such as a list that was read from the project's
// files. A type derives its own class and keeps the object at the manager, so that two databases in one
// process know nothing of each other.
#pragma once

#include <memory>
#include <typeindex>
#include <unordered_map>

class ITypeState
{
public:
    virtual ~ITypeState() = default;
};

// The states of a manager, each made when it is first asked for.
class CTypeStates
{
public:
    template <class T, class Make> [[nodiscard]] T& Get(Make make)
    {
        std::unique_ptr<ITypeState>& state = m_States[typeid(T)];
        if (!state)
            state = make();
        return static_cast<T&>(*state);
    }

private:
    std::unordered_map<std::type_index, std::unique_ptr<ITypeState>> m_States;
};
