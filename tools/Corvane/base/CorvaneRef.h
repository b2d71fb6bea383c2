// The reference-counted base of every shared object of the database, and the pointer that does the counting.
//
// A new object has no reference: the first CRef that takes it makes its count 1. When the count returns to 0
// the object deletes itself. All of this runs on the main thread; counts are plain integers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>

class CCorvaneRef
{
public:
    CCorvaneRef(const CCorvaneRef&) = delete;
    CCorvaneRef& operator=(const CCorvaneRef&) = delete;

    // Adds one and returns the new count.
    std::int32_t AddRef() { return ++m_nRef; }
    // Subtracts one. At exactly 0 the object deletes itself; below it an assertion fires and the object
    // stays. Returns the new count.
    std::int32_t Release();
    [[nodiscard]] std::int32_t GetRefCount() const { return m_nRef; }

    // Objects alive in this process, for tests that look for leaks and cycles.
    [[nodiscard]] static std::int64_t GetLiveCount() { return s_nLive; }

protected:
    CCorvaneRef() { ++s_nLive; }
    virtual ~CCorvaneRef();

private:
    static std::int64_t s_nLive;
    std::int32_t m_nRef = 0;
};

// Owns one reference. T derives from CCorvaneRef.
template <class T> class CRef
{
public:
    CRef() = default;
    CRef(std::nullptr_t) {}
    CRef(T* object) : m_pObject(object)
    {
        if (m_pObject)
            m_pObject->AddRef();
    }
    CRef(const CRef& other) : CRef(other.m_pObject) {}
    CRef(CRef&& other) noexcept : m_pObject(std::exchange(other.m_pObject, nullptr)) {}
    template <class U> CRef(const CRef<U>& other) : CRef(static_cast<T*>(other.Get())) {}
    ~CRef() { Reset(); }

    CRef& operator=(CRef other) noexcept
    {
        std::swap(m_pObject, other.m_pObject);
        return *this;
    }

    void Reset()
    {
        if (T* object = std::exchange(m_pObject, nullptr))
            object->Release();
    }

    [[nodiscard]] T* Get() const { return m_pObject; }
    T* operator->() const { return m_pObject; }
    T& operator*() const { return *m_pObject; }
    explicit operator bool() const { return m_pObject != nullptr; }
    friend bool operator==(const CRef& a, const CRef& b) { return a.m_pObject == b.m_pObject; }
    friend bool operator==(const CRef& a, const T* b) { return a.m_pObject == b; }

private:
    T* m_pObject = nullptr;
};
