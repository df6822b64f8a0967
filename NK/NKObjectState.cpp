#include "NK/NKObjectState.hpp"

#include <limits>

namespace NK {

using Json = nlohmann::ordered_json;

bool ObjectState::Contains(std::string_view name) const
{
    return Find(name) != nullptr;
}

std::vector<std::string> ObjectState::GetFieldNames() const
{
    std::vector<std::string> names;
    for (const auto& [name, value] : json.items())
        names.push_back(name);
    return names;
}

bool ObjectState::Remove(std::string_view name)
{
    return json.erase(std::string(name)) > 0;
}

const Json* ObjectState::Find(std::string_view name) const
{
    const auto entry = json.find(std::string(name));
    return entry == json.end() ? nullptr : &*entry;
}

void ObjectState::Set(std::string_view name, bool value) { Field(name) = value; }
void ObjectState::Set(std::string_view name, double value) { Field(name) = value; }
void ObjectState::Set(std::string_view name, const char* value) { Field(name) = value == nullptr ? std::string() : std::string(value); }
void ObjectState::Set(std::string_view name, const std::string& value) { Field(name) = value; }
void ObjectState::Set(std::string_view name, const UniString& value) { Field(name) = value.ToUtf8(); }
void ObjectState::Set(std::string_view name, const ObjectState& value) { Field(name) = value.json; }

bool ObjectState::FromJson(const Json& element, bool& value)
{
    if (!element.is_boolean())
        return false;
    value = element.get<bool>();
    return true;
}

bool ObjectState::FromJson(const Json& element, Int64& value)
{
    if (!element.is_number_integer())
        return false;
    if (element.is_number_unsigned() && element.get<UInt64>() > static_cast<UInt64>(std::numeric_limits<Int64>::max()))
        return false;
    value = element.get<Int64>();
    return true;
}

bool ObjectState::FromJson(const Json& element, Int32& value)
{
    Int64 wide = 0;
    if (!FromJson(element, wide) || wide < std::numeric_limits<Int32>::min() || wide > std::numeric_limits<Int32>::max())
        return false;
    value = static_cast<Int32>(wide);
    return true;
}

bool ObjectState::FromJson(const Json& element, double& value)
{
    if (!element.is_number())
        return false;
    value = element.get<double>();
    return true;
}

bool ObjectState::FromJson(const Json& element, UniString& value)
{
    if (!element.is_string())
        return false;
    value = UniString(element.get<std::string>());
    return true;
}

bool ObjectState::FromJson(const Json& element, ObjectState& value)
{
    if (!element.is_object())
        return false;
    value.json = element;
    return true;
}

bool ObjectState::Get(std::string_view name, bool& value) const
{
    const Json* field = Find(name);
    return field != nullptr && FromJson(*field, value);
}

bool ObjectState::Get(std::string_view name, Int64& value) const
{
    const Json* field = Find(name);
    return field != nullptr && FromJson(*field, value);
}

bool ObjectState::Get(std::string_view name, Int32& value) const
{
    const Json* field = Find(name);
    return field != nullptr && FromJson(*field, value);
}

bool ObjectState::Get(std::string_view name, double& value) const
{
    const Json* field = Find(name);
    return field != nullptr && FromJson(*field, value);
}

bool ObjectState::Get(std::string_view name, UniString& value) const
{
    const Json* field = Find(name);
    return field != nullptr && FromJson(*field, value);
}

bool ObjectState::Get(std::string_view name, ObjectState& value) const
{
    const Json* field = Find(name);
    return field != nullptr && FromJson(*field, value);
}

UniString ObjectState::GetString(std::string_view name, const UniString& defaultValue) const
{
    UniString value = defaultValue;
    Get(name, value);
    return value;
}

Int64 ObjectState::GetInt(std::string_view name, Int64 defaultValue) const
{
    Int64 value = defaultValue;
    Get(name, value);
    return value;
}

bool ObjectState::GetBool(std::string_view name, bool defaultValue) const
{
    bool value = defaultValue;
    Get(name, value);
    return value;
}

ErrCode ObjectState::Parse(std::string_view text, ObjectState& state)
{
    Json parsed = Json::parse(text.begin(), text.end(), nullptr, false);
    if (parsed.is_discarded() || !parsed.is_object())
        return ErrParse;
    state.json = std::move(parsed);
    return NoError;
}

std::string ObjectState::ToJsonText(int indent) const
{
    // Replace invalid UTF-8 rather than throw: a reply must always print.
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

}  // namespace NK
