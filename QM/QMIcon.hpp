// QM::Icon: an icon named by the resource module that holds it and its id within that module.
// The default value is "no icon" (module 0, id 0); two icons are equal when both parts are.
#pragma once

#include "NK/NKTypes.hpp"

#include <string>

namespace QM {

class Icon {
public:
    constexpr Icon() noexcept = default;
    constexpr Icon(NK::Int64 module, NK::Int32 id) noexcept : module(module), id(id) {}

    static constexpr Icon NoIcon() noexcept { return Icon(); }

    constexpr NK::Int64 GetModule() const noexcept { return module; }
    constexpr NK::Int32 GetId() const noexcept { return id; }
    constexpr bool IsEmpty() const noexcept { return module == 0 && id == 0; }

    constexpr bool operator==(const Icon&) const noexcept = default;

    // "icon(module:id)", or "" for no icon; used by the text renderer.
    std::string ToString() const;

private:
    NK::Int64 module = 0;
    NK::Int32 id = 0;
};

}  // namespace QM
