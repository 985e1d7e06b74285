#include "cli/output/header_json.h"

#include "cli/join.h"
#include "files/uds_field_table.h"
#include "files/uds_fields.h"
#include "signal/data.h"
#include "signal/header_groups.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace {

using Json = nlohmann::ordered_json;

std::string Dump(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

Json ValueJson(const std::string& text) {
    return ks::WithoutPadding(text);
}

Json ValueJson(std::int32_t number) {
    return number;
}

Json ValueJson(float number) {
    return static_cast<double>(number);
}

Json FieldJson(const ks::CUDSField& field, const ks::CUDSFields& fields) {
    return std::visit([&fields](const auto& access) { return ValueJson((fields.*access.get)()); }, field.access);
}

Json FieldsJson(const ks::CData& record) {
    Json json = Json::object();
    for (const ks::CUDSField& field : ks::UdsFieldTable()) {
        if (field.record == ks::CUDSRecord::SecondComponent && !record.HasSecondComponent()) continue;
        json[std::string(field.name)] = FieldJson(field, record);
    }
    return json;
}

Json EntriesJson(const ks::CHeaderGroup& group, const ks::CData& record) {
    Json json = Json::array();
    for (const ks::CHeaderValue& value : ks::HeaderValues(group, record)) {
        json.push_back({{"label", value.label}, {"value", value.value}, {"unit", value.unit}});
    }
    return json;
}

Json GroupsJson(const ks::CData& record) {
    Json json = Json::array();
    for (const ks::CHeaderGroup& group : ks::HeaderGroups()) {
        if (!ks::HasHeaderGroup(record, group)) continue;
        // Adjacent groups with the same title become one.
        if (json.empty() || json.back()["title"] != group.title) {
            json.push_back({{"title", group.title}, {"entries", Json::array()}});
        }
        Json& entries = json.back()["entries"];
        for (Json& entry : EntriesJson(group, record)) entries.push_back(std::move(entry));
    }
    return json;
}

void AppendItem(std::string& items, const Json& item) {
    items += items.empty() ? "\n  " : ",\n  ";
    items += Dump(item);
}

}  // namespace

void CHeaderJson::AddFile(const std::string& path, const ks::CData& record) {
    Json json;
    json["path"] = path;
    json["secondComponent"] = record.HasSecondComponent();
    json["pointCount"] = record.GetPointCount();
    json["fields"] = FieldsJson(record);
    json["groups"] = GroupsJson(record);
    AppendItem(m_files, json);
}

void CHeaderJson::AddError(const std::string& path, const std::string& message) {
    AppendItem(m_errors, {{"path", path}, {"message", message}});
}

std::string CHeaderJson::Finish() {
    return Join({"{\n\"format\": \"quorvel-show\",\n\"version\": 1,\n\"files\": [", m_files, "],\n\"errors\": [",
                 m_errors, "]\n}\n"});
}
