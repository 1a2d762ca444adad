// SPDX-License-Identifier: MIT
#include "tools/plugins/InspectReport.h"
#include "tools/plugins/LockJson.h"
#include "tools/plugins/PluginIndex.h"
#include "tools/text/PlaceJson.h"

#include <vaultry/foundation/CodePage.h>

namespace Tarnex::Report {

namespace {

Json ColorJson(PluginColor color) {
    return Json::array({color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF});
}

void SetPlace(Json& json, const PluginPlace& place) {
    json["position"] = PointJson(place.position);
    json["rotation"] = PointJson(place.rotation);
    json["degrees"] = DegreesJson(place.rotation);
}

Json DestinationJson(const PluginRef& ref, const PluginIndex& index) {
    if (!ref.destination) {
        return nullptr;
    }
    const std::string& cell = ref.destination->cell;
    Json json = {{"cell", ToUtf8(cell)}, {"in-plugin", !cell.empty() && index.HasCell(cell)}};
    SetPlace(json, ref.destination->arrival);
    return json;
}

Json RefJson(const PluginRef& ref, const PluginIndex& index) {
    Json json = {{"number", ref.index}, {"id", ToUtf8(ref.id)}, {"scale", Widened(ref.scale)}};
    SetPlace(json, ref.place);
    json["destination"] = DestinationJson(ref, index);
    json["lock"] = LockJson(ref.lock);
    json["deleted"] = ref.deleted;
    return json;
}

Json KeyJson(const PluginKey& key) {
    return {{"id", ToUtf8(key.id)},
            {"offset", key.offset},
            {"name", ToUtf8(key.name)},
            {"model", ToUtf8(key.model)},
            {"icon", ToUtf8(key.icon)},
            {"weight", Widened(key.weight)},
            {"value", key.worth},
            {"deleted", key.deleted}};
}

Json BoundsJson(const CellSummary& summary) {
    if (!summary.bounds) {
        return nullptr;
    }
    return {{"low", PointJson(summary.bounds->low)}, {"high", PointJson(summary.bounds->high)}};
}

Json PathGridJson(const PluginPathGrid* grid) {
    if (grid == nullptr) {
        return nullptr;
    }
    Json json = Json::array();
    for (const PathPoint& point : grid->points) {
        json.push_back({{"position", {point.x, point.y, point.z}}, {"ways", point.ways}});
    }
    return json;
}

Json CellJson(const PluginCell& cell, const PluginIndex& index) {
    const CellSummary summary = Summarise(cell, index);
    Json json = {
        {"name", ToUtf8(cell.name)},
        {"offset", cell.offset},
        {"flags", cell.flags},
        {"deleted", cell.deleted},
        {"ambient", ColorJson(cell.ambient)},
        {"sunlight", ColorJson(cell.sunlight)},
        {"fog", ColorJson(cell.fog)},
        {"fog-density", Widened(cell.fogDensity)},
        {"water-height", Widened(cell.waterHeight)},
        {"declared-references", cell.refCount ? Json(*cell.refCount) : Json(nullptr)},
        {"bounds", BoundsJson(summary)},
        {"doors", summary.doors},
        {"teleports", summary.teleports},
        {"containers", summary.containers},
        {"locked-doors", summary.lockedDoors},
        {"locked-containers", summary.lockedContainers},
        {"traps", summary.traps},
        {"path-grid", PathGridJson(index.PathGridOf(cell))},
    };
    Json& refs = json["references"] = Json::array();
    for (const PluginRef& ref : cell.refs) {
        refs.push_back(RefJson(ref, index));
    }
    return json;
}

Json ExteriorJson(const PluginCell& cell, const PluginIndex& index) {
    Json json = {
        {"name", ToUtf8(cell.name)},
        {"offset", cell.offset},
        {"flags", cell.flags},
        {"deleted", cell.deleted},
        {"grid", {cell.column, cell.row}},
        {"region", ToUtf8(cell.region)},
    };
    Json& refs = json["references"] = Json::array();
    for (const PluginRef& ref : cell.refs) {
        refs.push_back(RefJson(ref, index));
    }
    return json;
}

Json ContainerJson(const PluginContainer& container) {
    Json json = {
        {"id", ToUtf8(container.id)},
        {"offset", container.offset},
        {"name", ToUtf8(container.name)},
        {"model", ToUtf8(container.model)},
        {"capacity", Widened(container.capacity)},
        {"flags", container.flags},
        {"deleted", container.deleted},
    };
    Json& items = json["items"] = Json::array();
    for (const PluginItem& item : container.items) {
        items.push_back({{"id", ToUtf8(item.id)}, {"count", item.count}});
    }
    return json;
}

Json HeaderJson(const PluginHeader& header) {
    Json json = {
        {"version", Widened(header.version)},
        {"type", header.type},
        {"author", ToUtf8(header.author)},
        {"description", ToUtf8(header.description)},
        {"records", header.recordCount},
    };
    Json& masters = json["masters"] = Json::array();
    for (const PluginMaster& master : header.masters) {
        masters.push_back({{"name", ToUtf8(master.name)}, {"bytes", master.size}});
    }
    return json;
}

Json FindingsJson(const std::vector<PluginFinding>& findings) {
    Json json = Json::array();
    for (const PluginFinding& finding : findings) {
        json.push_back({{"offset", finding.offset}, {"text", finding.text}});
    }
    return json;
}

Json TotalsJson(const Inspection& inspection, const PluginIndex& index) {
    const PluginTotals totals = TotalsOf(inspection.file, index);
    Json json = {{"interiors", inspection.file.cells.size()},
                 {"references", totals.references},
                 {"doors", totals.doors},
                 {"teleports", totals.teleports},
                 {"lights", totals.lights},
                 {"containers", totals.containers},
                 {"items", totals.items},
                 {"known", nullptr}};
    if (const auto& known = inspection.known) {
        json["known"] = {{"config", known->config},
                         {"areas", known->areas},
                         {"creatures", known->creatures},
                         {"treasure", known->treasure}};
    }
    return json;
}

} // namespace

std::string ToJson(const Inspection& inspection) {
    const PluginFile& file = inspection.file;
    const PluginIndex index(file);
    Json json = JsonHeader();
    json["path"] = inspection.path;
    json["bytes"] = file.size;
    json["complete"] = file.complete;
    json["header"] = HeaderJson(file.header);
    json["command"] = inspection.command.empty() ? Json(nullptr) : Json(inspection.command);
    json["records"] = file.records;
    json["exterior-cells"] = file.exteriorCells;
    json["other-records"] = file.otherRecords;
    json["skipped-sub-records"] = file.skippedSubRecords;
    Json& cells = json["cells"] = Json::array();
    for (const PluginCell& cell : file.cells) {
        cells.push_back(CellJson(cell, index));
    }
    Json& exteriors = json["exteriors"] = Json::array();
    for (const PluginCell& cell : file.exteriors) {
        exteriors.push_back(ExteriorJson(cell, index));
    }
    json["arrivals"] = ArrivalsJson(inspection.arrivals);
    Json& keys = json["keys"] = Json::array();
    for (const PluginKey& key : file.keys) {
        keys.push_back(KeyJson(key));
    }
    Json& containers = json["containers"] = Json::array();
    for (const PluginContainer& container : file.containers) {
        containers.push_back(ContainerJson(container));
    }
    json["totals"] = TotalsJson(inspection, index);
    json["findings"] = FindingsJson(inspection.findings);
    json["findings-left-out"] = file.findingsLeftOut;
    return JsonText(json);
}

} // namespace Tarnex::Report
