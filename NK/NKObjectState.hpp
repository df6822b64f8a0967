// NK::ObjectState: a JSON-like value object (named fields in insertion order) for the test
// driver's requests and replies. Fields hold booleans, integers, doubles, strings, nested
// states and arrays of these. Set replaces a field of the same name. Get gives false and
// leaves the output untouched when the field is missing or of another kind (an integer field
// reads as a double; a double never reads as an integer). Parse accepts a JSON object only.
#pragma once

#include "NK/NKArray.hpp"
#include "NK/NKTypes.hpp"
#include "NK/NKUniString.hpp"

#include <nlohmann/json.hpp>

#include <concepts>
#include <string>
#include <string_view>
#include <vector>

namespace NK {

class ObjectState {
public:
    ObjectState() = default;

    bool IsEmpty() const noexcept { return json.empty(); }
    UIndex GetFieldCount() const noexcept { return json.size(); }
    bool Contains(std::string_view name) const;
    std::vector<std::string> GetFieldNames() const;
    bool Remove(std::string_view name);
    void Clear() noexcept { json = nlohmann::ordered_json::object(); }

    void Set(std::string_view name, bool value);
    template <std::integral T>
        requires(!std::same_as<T, bool>)
    void Set(std::string_view name, T value)
    {
        Field(name) = value;
    }
    void Set(std::string_view name, double value);
    void Set(std::string_view name, const char* value);
    void Set(std::string_view name, const std::string& value);
    void Set(std::string_view name, const UniString& value);
    void Set(std::string_view name, const ObjectState& value);
    template <typename T>
    void Set(std::string_view name, const Array<T>& values)
    {
        nlohmann::ordered_json list = nlohmann::ordered_json::array();
        for (const T& value : values)
            list.push_back(ToJson(value));
        Field(name) = std::move(list);
    }

    bool Get(std::string_view name, bool& value) const;
    bool Get(std::string_view name, Int64& value) const;
    bool Get(std::string_view name, Int32& value) const;
    bool Get(std::string_view name, double& value) const;
    bool Get(std::string_view name, UniString& value) const;
    bool Get(std::string_view name, ObjectState& value) const;
    // All elements must be of the kind asked for, else nothing is read.
    template <typename T>
    bool Get(std::string_view name, Array<T>& values) const
    {
        const nlohmann::ordered_json* field = Find(name);
        if (field == nullptr || !field->is_array())
            return false;
        Array<T> result;
        for (const nlohmann::ordered_json& element : *field) {
            T value {};
            if (!FromJson(element, value))
                return false;
            result.Push(std::move(value));
        }
        values = std::move(result);
        return true;
    }

    // Conveniences for fields that may be missing.
    UniString GetString(std::string_view name, const UniString& defaultValue = {}) const;
    Int64 GetInt(std::string_view name, Int64 defaultValue = 0) const;
    bool GetBool(std::string_view name, bool defaultValue = false) const;

    // ErrParse for a text that is not a JSON object; `state` is left untouched then.
    static ErrCode Parse(std::string_view text, ObjectState& state);
    // Compact JSON, or pretty with `indent` spaces per level.
    std::string ToJsonText(int indent = -1) const;

    const nlohmann::ordered_json& GetJson() const noexcept { return json; }

    bool operator==(const ObjectState& other) const { return json == other.json; }

private:
    nlohmann::ordered_json& Field(std::string_view name) { return json[std::string(name)]; }
    const nlohmann::ordered_json* Find(std::string_view name) const;

    static nlohmann::ordered_json ToJson(bool value) { return value; }
    static nlohmann::ordered_json ToJson(Int64 value) { return value; }
    static nlohmann::ordered_json ToJson(Int32 value) { return value; }
    static nlohmann::ordered_json ToJson(double value) { return value; }
    static nlohmann::ordered_json ToJson(const UniString& value) { return value.ToUtf8(); }
    static nlohmann::ordered_json ToJson(const ObjectState& value) { return value.json; }
    static bool FromJson(const nlohmann::ordered_json& element, bool& value);
    static bool FromJson(const nlohmann::ordered_json& element, Int64& value);
    static bool FromJson(const nlohmann::ordered_json& element, Int32& value);
    static bool FromJson(const nlohmann::ordered_json& element, double& value);
    static bool FromJson(const nlohmann::ordered_json& element, UniString& value);
    static bool FromJson(const nlohmann::ordered_json& element, ObjectState& value);

    nlohmann::ordered_json json = nlohmann::ordered_json::object();
};

}  // namespace NK
