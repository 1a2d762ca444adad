// SPDX-License-Identifier: MIT
#include "tools/stage/StageFiles.h"

#include "tools/stage/NifFile.h"
#include "tools/stage/StageRecords.h"
#include "tools/stage/Texture.h"
#include "tools/text/Words.h"

#include <algorithm>

namespace Tarnex::Report {

namespace {

constexpr const char* kItemModel = "stage\\item.nif";
constexpr const char* kNorthModel = "marker_north.nif";

bool IsPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
}

std::string Lower(std::string text) {
    std::ranges::transform(text, text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
    });
    return text;
}

// The engine looks for files without regard to case, and a configuration may name any file there
// is: only such below "meshes" are written, under names that every system takes.
bool IsHarmlessModel(const std::string& model) {
    return model.ends_with(".nif") && !model.starts_with('\\') &&
           std::ranges::all_of(
               model, [](char c) { return IsPlain(c) || c == '\\' || c == '.' || c == ' '; }) &&
           model.find("..") == std::string::npos && model.find("\\.") == std::string::npos;
}

std::string MeshPath(std::string model) {
    std::ranges::replace(model, '\\', '/');
    return "meshes/" + model;
}

class Packer {
public:
    explicit Packer(const StagePlan& plan) {
        stage.remarks = plan.remarks;
        AddEngineFiles();
        for (const auto& [key, standIn] : plan.standIns) {
            AddStandIn(standIn);
        }
        AddFurther();
    }

    StageFiles Finish() {
        std::uint32_t count = static_cast<std::uint32_t>(stage.objects);
        const std::string world = WorldRecords(count);
        stage.master = StageMaster(count, world + records);
        return std::move(stage);
    }

private:
    void AddEngineFiles() {
        for (const SurfaceLook& look : SurfaceLooks()) {
            stage.files["textures/stage_" + std::string(look.name) + ".dds"] = TextureFile(look);
        }
        stage.files["textures/_land_default.dds"] = TextureFile({"land", {90, 110, 70}});
        for (const char* const name : {"arrow", "divine", "north", "temple", "travel", "prison"}) {
            stage.files["meshes/marker_" + std::string(name) + ".nif"] = MeshFile({});
        }
        Shape box;
        AddBox(box, Surface::Unknown, {-20, -20, 0}, {20, 20, 40});
        stage.files["meshes/marker_error.nif"] = MeshFile(box);
        stage.files[MeshPath(kItemModel)] = MeshFile(box);
        for (const char* const name :
             {"base_anim", "base_anim.1st", "base_anim_female", "base_animkna"}) {
            for (const char* const start : {"", "x"}) {
                const std::string path = "meshes/" + std::string(start) + name;
                stage.files[path + ".nif"] = SkeletonFile();
                stage.files[path + ".kf"] = AnimationFile();
            }
        }
    }

    // What lists hold.
    void AddFurther() {
        StandIn creature;
        creature.id = creature.name = "stage_creature";
        creature.sort = StandInSort::Creature;
        AddBox(creature.shape, Surface::Creature, {-22, -30, 2}, {22, 30, 90});
        AddStandIn(creature);
        StandIn item;
        item.id = item.name = "stage_item";
        item.sort = StandInSort::Item;
        AddStandIn(item);
    }

    void AddStandIn(const StandIn& standIn) {
        ++stage.objects;
        records += ObjectRecord(standIn, ModelOf(standIn));
    }

    // The path of its mesh as records name it; writes the mesh where there is one.
    std::string ModelOf(const StandIn& standIn) {
        if (standIn.sort == StandInSort::Item) {
            return kItemModel;
        }
        if (standIn.shape.empty()) {
            return standIn.sort == StandInSort::Static ? kNorthModel : "";
        }
        ++stage.known.at(static_cast<std::size_t>(standIn.known));
        std::string model = Lower(standIn.model);
        if (!model.empty() && !IsHarmlessModel(model)) {
            stage.remarks.push_back("no mesh is written for the model " + Quoted(standIn.model) +
                                    " of " + standIn.use);
            model.clear();
        }
        model = model.empty() ? OwnModel(standIn.id) : model;
        stage.files.try_emplace(MeshPath(model), MeshOf(standIn));
        if (standIn.sort == StandInSort::Creature) {
            AddAnimation(model);
        }
        return model;
    }

    static std::string MeshOf(const StandIn& standIn) {
        return standIn.sort == StandInSort::Creature
                   ? ActorMeshFile(standIn.shape, {0, 0, 45}, {24, 24, 45})
                   : MeshFile(standIn.shape);
    }

    // The engine puts an "x" before the names of animated models.
    void AddAnimation(const std::string& model) {
        const std::string path = MeshPath(model);
        const std::size_t name = path.rfind('/') + 1;
        const std::string start = path.substr(0, name) + 'x' + path.substr(name);
        stage.files.try_emplace(start, stage.files.at(path));
        stage.files.try_emplace(start.substr(0, start.size() - 4) + ".kf", AnimationFile());
    }

    // Identifiers that differ in odd characters only get different models all the same.
    std::string OwnModel(const std::string& id) {
        std::string name = Lower(id);
        std::ranges::replace_if(
            name, [](char c) { return !IsPlain(c); }, '_');
        std::string model = "stage\\" + name + ".nif";
        for (int number = 2; stage.files.contains(MeshPath(model)); ++number) {
            model = "stage\\" + name + '_' + std::to_string(number) + ".nif";
        }
        return model;
    }

    StageFiles stage;
    std::string records;
};

} // namespace

StageFiles FilesOf(const StagePlan& plan) {
    return Packer(plan).Finish();
}

} // namespace Tarnex::Report
