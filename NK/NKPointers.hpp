// Ownership in types: NK::Ref shares (counted), NK::Owner owns alone (moved), NK::Object is the
// polymorphic root of records attached to toolkit rows and nodes. Dereferencing an empty
// pointer throws NK::NullReferenceException ("Null reference.").
#pragma once

#include "NK/NKExceptions.hpp"

#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace NK {

template <typename T>
using Optional = std::optional<T>;

class Object {
public:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
    virtual ~Object() = default;
};

template <typename T>
class Ref {
public:
    Ref() noexcept = default;
    Ref(std::nullptr_t) noexcept {}
    explicit Ref(std::shared_ptr<T> ptr) noexcept : ptr(std::move(ptr)) {}
    template <typename U>
        requires std::is_convertible_v<U*, T*>
    Ref(const Ref<U>& other) noexcept : ptr(other.AsShared())
    {
    }
    template <typename U>
        requires std::is_convertible_v<U*, T*>
    Ref(Ref<U>&& other) noexcept : ptr(std::move(other).TakeShared())
    {
    }

    T& operator*() const { return *Checked(); }
    T* operator->() const { return Checked(); }
    T* Get() const noexcept { return ptr.get(); }
    bool IsNull() const noexcept { return ptr == nullptr; }
    explicit operator bool() const noexcept { return ptr != nullptr; }
    long GetRefCount() const noexcept { return ptr.use_count(); }
    void Clear() noexcept { ptr.reset(); }

    const std::shared_ptr<T>& AsShared() const& noexcept { return ptr; }
    std::shared_ptr<T> TakeShared() && noexcept { return std::move(ptr); }

    template <typename U>
    bool operator==(const Ref<U>& other) const noexcept { return Get() == other.Get(); }
    bool operator==(std::nullptr_t) const noexcept { return ptr == nullptr; }

private:
    T* Checked() const
    {
        if (ptr == nullptr)
            throw NullReferenceException();
        return ptr.get();
    }
    std::shared_ptr<T> ptr;
};

template <typename T, typename... Args>
Ref<T> NewRef(Args&&... args)
{
    return Ref<T>(std::make_shared<T>(std::forward<Args>(args)...));
}

// The Ref as a Ref of a derived class; empty when the object is not one.
template <typename To, typename From>
Ref<To> DynamicCast(const Ref<From>& from)
{
    return Ref<To>(std::dynamic_pointer_cast<To>(from.AsShared()));
}

template <typename T>
class Owner {
public:
    Owner() noexcept = default;
    Owner(std::nullptr_t) noexcept {}
    // Takes sole ownership of a raw object made by a factory.
    explicit Owner(T* raw) noexcept : ptr(raw) {}
    explicit Owner(std::unique_ptr<T> ptr) noexcept : ptr(std::move(ptr)) {}
    template <typename U>
        requires std::is_convertible_v<U*, T*>
    Owner(Owner<U>&& other) noexcept : ptr(std::move(other).TakeUnique())
    {
    }
    Owner(Owner&&) noexcept = default;
    Owner& operator=(Owner&&) noexcept = default;
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;

    T& operator*() const { return *Checked(); }
    T* operator->() const { return Checked(); }
    T* Get() const noexcept { return ptr.get(); }
    bool IsNull() const noexcept { return ptr == nullptr; }
    explicit operator bool() const noexcept { return ptr != nullptr; }
    // Gives up ownership; the caller deletes.
    T* Release() noexcept { return ptr.release(); }
    void Clear() noexcept { ptr.reset(); }

    std::unique_ptr<T> TakeUnique() && noexcept { return std::move(ptr); }
    bool operator==(std::nullptr_t) const noexcept { return ptr == nullptr; }

private:
    T* Checked() const
    {
        if (ptr == nullptr)
            throw NullReferenceException();
        return ptr.get();
    }
    std::unique_ptr<T> ptr;
};

template <typename T, typename... Args>
Owner<T> NewOwned(Args&&... args)
{
    return Owner<T>(std::make_unique<T>(std::forward<Args>(args)...));
}

}  // namespace NK
