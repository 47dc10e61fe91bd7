#include "standin/ChangesTranscript.h"

#include "femap/ValueRuns.h"
#include "standin/StartedStandin.h"
#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>

namespace comtest
{

using namespace femap;

namespace
{

constexpr int absent = 987'654;

std::vector<int> allOf(Application& femap, EntityType type)
{
    const std::unique_ptr<EntitySet> set = femap.feSet();
    set->AddAll(type);
    return set->ids();
}

Value read(MemberObject& object, const MemberName& member)
{
    return member.index ? object.member(member.name, *member.index) : object.member(member.name);
}

// Null where the definition has fewer.
std::unique_ptr<MemberObject> loadOf(Application& femap, int loadSet, int definition,
                                     std::size_t number)
{
    const std::unique_ptr<LoadDefinition> loaded = femap.feLoadDefinition();
    if (loaded->Get(loadSet, definition) != ReturnCode::Ok)
        return nullptr;
    loaded->ResetNextLoad();
    std::unique_ptr<MemberObject> load = loaded->NextLoad();
    for (std::size_t i = 0; i < number && load != nullptr; ++i)
        load = loaded->NextLoad();
    return load;
}

std::vector<MemberName> numbersOfLoads(int dataType)
{
    switch (static_cast<LoadDataType>(dataType)) {
    case LoadDataType::NodalTemperature:
        return {{"temp"}};
    case LoadDataType::ElementalTemperature:
        return {{"temp"}, {"gradient"}};
    default:
        return {{"load", 0}, {"load", 2}, {"phase"}, {"layer"}};
    }
}

class Changer
{
public:
    Changer(Application& femap, const SolverFolder& folder) : femap_(femap), folder_(folder) {}

    void putAll();
    void putOneByOne();
    void refuse();
    void switchDialogs();
    void exchange();

    std::vector<std::string> lines;

private:
    void attempt(const std::string& what, const std::function<void()>& change);
    void put(const ModelValues& values);
    void refused(const EntityValue& value);
    void results();

    Application& femap_;
    const SolverFolder& folder_;
    std::unique_ptr<ModelChanges> changes_ = femap_.changes();
};

void Changer::attempt(const std::string& what, const std::function<void()>& change)
{
    try {
        change();
        lines.push_back(what + " is done");
    }
    catch (const sys::RuntimeError& error) {
        const std::string said = error.description();
        lines.push_back(what + " is refused: " + said.substr(0, said.find(": ")));
    }
}

void Changer::put(const ModelValues& values)
{
    attempt("put", [&] { changes_->put(values); });
    std::ranges::copy(linesOf(presentValues(femap_, values)), std::back_inserter(lines));
}

void Changer::putAll()
{
    const int loadSet = femap_.Info_ActiveID(EntityType::LoadSet);
    const ModelValues all = {newValues(), newLoads(femap_, loadSet), newPoints(femap_)};
    const ModelValues before = presentValues(femap_, all);
    std::ranges::copy(linesOf(before), std::back_inserter(lines));
    put(all);
    put(before);
    put({});
}

void Changer::putOneByOne()
{
    for (const EntityValue& each : newValues())
        put({.entities = {each}, .loads = {}, .functions = {}});
}

void Changer::refused(const EntityValue& value)
{
    attempt(ownerOf(value), [&] { changes_->put({{value}, {}, {}}); });
}

void Changer::refuse()
{
    refused({"Node", absent, {"x"}, 1.0});
    refused({"Prop", absent, {"pval", 1}, 1.0});
    refused({"Matl", absent, {"Ex"}, 1.0});
    refused({"Prop", 1, {"nonsense"}, 1.0});
    refused({"Prop", 1, {"pval", 500}, 1.0});
    refused({"Prop", 1, {"pval", -1}, 1.0});
    refused({"Prop", 1, {"pval", 1}, std::string("thick")});
    refused({"Elem", 1, {"propID"}, 1.5});
    refused({"Node", 1, {"permBC", 0}, std::string("maybe")});
    const auto load = [&](int loadSet, int definition, std::size_t number, MemberName member) {
        attempt("load", [&] {
            changes_->put({{}, {{loadSet, definition, number, std::move(member), 1.0}}, {}});
        });
    };
    load(absent, 1, 0, {"load", 0});
    load(1, absent, 0, {"load", 0});
    load(1, 1, absent, {"load", 0});
    load(1, 1, 0, {"nonsense"});
    attempt("function", [&] { changes_->put({{}, {}, {{absent, {{1}, {2}}}}}); });
    attempt("function", [&] { changes_->put({{}, {}, {{1, {{1, 2}, {2}}}}}); });
}

void Changer::switchDialogs()
{
    const DialogSwitches before = changes_->dialogSwitches();
    for (const DialogSwitches& each : {DialogSwitches{1, 0}, DialogSwitches{0, 1}, before}) {
        changes_->setDialogSwitches(each);
        lines.push_back(changes_->dialogSwitches() == each ? "switched" : "not switched");
    }
}

void Changer::results()
{
    std::string line = "output sets";
    for (const int id : allOf(femap_, EntityType::OutputSet))
        line += ' ' + std::to_string(id);
    lines.push_back(line + " active " +
                    std::to_string(femap_.Info_ActiveID(EntityType::OutputSet)));
}

void Changer::exchange()
{
    constexpr SolverBrand brand = SolverBrand::NxNastran;
    for (const char* const deck : {"panel.dat", "no such folder\\panel.dat"})
        attempt("deck", [&] { changes_->feFileWriteNastran(brand, folder_.path(deck)); });
    std::vector<int> ids = allOf(femap_, EntityType::OutputSet);
    const auto before = static_cast<std::ptrdiff_t>(ids.size());
    for (const char* const file : {"run.op2", "none.op2"})
        attempt("results", [&] { changes_->feFileReadNastranResults(brand, folder_.path(file)); });
    results();
    const int active = femap_.Info_ActiveID(EntityType::OutputSet);
    ids = allOf(femap_, EntityType::OutputSet);
    for (const int id : {ids.back(), absent, 0, active}) {
        attempt("active", [&] { changes_->activateOutputSet(id); });
        results();
    }
    const std::vector<int> added(ids.begin() + before, ids.end());
    for (const std::vector<int>& gone : {std::vector<int>(), added, added}) {
        attempt("delete", [&] { changes_->deleteOutputSets(gone); });
        results();
    }
}

}  // namespace

std::vector<EntityValue> newValues()
{
    std::vector<EntityValue> values = {{"Node", 1, {"x"}, 0.125},
                                       {"Node", 1, {"layer"}, std::int64_t{3}},
                                       {"Node", 1, {"permBC", 5}, true},
                                       {"Node", 2, {"Z"}, -0.1},
                                       {"Node", 2, {"x"}, std::int64_t{7}},
                                       {"Node", 3, {"y"}, std::string("1E-3")},
                                       {"Node", 3, {"z"}, 0.5F},
                                       {"Elem", 1, {"orient", 0}, 30.5},
                                       {"Elem", 1, {"propID"}, 2.0},
                                       {"Elem", 2, {"node", 1}, std::int64_t{6}},
                                       {"Elem", 2, {"color"}, std::string("12")},
                                       {"Prop", 1, {"pval", 7}, 2.5},
                                       {"Prop", 1, {"pval", 100}, 1e-300},
                                       {"Prop", 1, {"matlID"}, std::int64_t{2}},
                                       {"Prop", 2, {"PVAL", 0}, 0.1 + 0.2},
                                       {"Prop", 2, {"title"}, std::string("Träger")},
                                       {"Prop", 3, {"pval", 0}, std::string("12.5")},
                                       {"Matl", 1, {"Damping"}, 0.03},
                                       {"Matl", 1, {"mval", 49}, 7.85},
                                       {"Matl", 1, {"Nuxy"}, 0.25},
                                       {"Matl", 2, {"ex"}, 7e10},
                                       {"Matl", 2, {"Ey"}, 6e10},
                                       {"Matl", 2, {"Alphazx"}, 1e-5},
                                       {"Matl", 2, {"TsaiWu"}, -0.5}};
    // Enough of each kind to be put at once.
    for (int i = 0; i < 12; ++i) {
        values.push_back({"Node", 4 + i / 2, {i % 2 == 0 ? "x" : "z"}, 0.25 + i});
        values.push_back({"Prop", 1 + i % 3, {"pval", 20 + i}, 0.125 + i});
        values.push_back({"Matl", 1 + i % 2, {"mval", 60 + i}, 0.0625 + i});
    }
    std::ranges::stable_sort(values, {}, &EntityValue::word);
    return values;
}

std::vector<LoadValue> newLoads(Application& femap, int loadSet)
{
    std::vector<LoadValue> result;
    const std::unique_ptr<LoadDefinition> definition = femap.feLoadDefinition();
    double value = 2.5;
    for (const int id : allOf(femap, EntityType::LoadDefinition)) {
        if (definition->Get(loadSet, id) != ReturnCode::Ok)
            continue;
        for (std::size_t number = 0; number < 2; ++number)
            if (loadOf(femap, loadSet, id, number) != nullptr)
                for (const MemberName& member : numbersOfLoads(definition->dataType()))
                    result.push_back({loadSet, id, number, member, value++ - 0.5});
    }
    return result;
}

std::vector<FunctionValue> newPoints(Application& femap)
{
    std::vector<FunctionValue> result;
    const std::unique_ptr<Function> function = femap.feFunction();
    for (const int id : allOf(femap, EntityType::Function)) {
        function->Get(id);
        FunctionPoints points = function->GetFunctionList();
        for (double& y : points.y)
            y += 0.5;
        result.push_back({id, std::move(points)});
    }
    return result;
}

ModelValues presentValues(Application& femap, const ModelValues& places)
{
    ModelValues result = places;
    for (EntityValue& each : result.entities) {
        const std::unique_ptr<Entity> entity = femap.entity(each.word);
        each.value = entity->Get(each.id) == ReturnCode::Ok ? read(*entity, each.member) : Value();
    }
    std::unique_ptr<MemberObject> load;
    for (std::size_t i = 0; i < result.loads.size(); ++i) {
        LoadValue& each = result.loads[i];
        const LoadValue& before = places.loads[i == 0 ? 0 : i - 1];
        if (i == 0 || !isOfSame(before, each) || before.load != each.load)
            load = loadOf(femap, each.loadSet, each.definition, each.load);
        each.value = load == nullptr ? Value() : read(*load, each.member);
    }
    const std::unique_ptr<Function> function = femap.feFunction();
    for (FunctionValue& each : result.functions)
        each.points = function->Get(each.id) == ReturnCode::Ok ? function->GetFunctionList()
                                                               : FunctionPoints();
    return result;
}

std::vector<std::string> linesOf(const ModelValues& values)
{
    std::vector<std::string> lines;
    for (const EntityValue& each : values.entities)
        lines.push_back(nameOf(each.member) + " of " + ownerOf(each) + " = " + toText(each.value));
    for (const LoadValue& each : values.loads)
        lines.push_back(nameOf(each.member) + " of " + loadOf(each) + " = " + toText(each.value));
    for (const FunctionValue& each : values.functions) {
        std::string line = ownerOf(each) + " =";
        for (std::size_t i = 0; i < each.points.x.size(); ++i)
            line += ' ' + toText(each.points.x[i]) + '/' + toText(each.points.y[i]);
        lines.push_back(line);
    }
    return lines;
}

SolverFolder::SolverFolder()
{
    std::filesystem::copy_file(windows::toWide(panelModel()),
                               windows::toWide(path("run.results.neu")));
    std::ofstream(std::filesystem::path(windows::toWide(path("run.op2")))) << "x";
}

std::string ofChanges(Application& femap, const SolverFolder& folder)
{
    Changer changer(femap, folder);
    changer.putAll();
    changer.putOneByOne();
    changer.refuse();
    changer.switchDialogs();
    changer.exchange();
    std::string text;
    for (const std::string& line : changer.lines)
        text += line + '\n';
    return text;
}

}  // namespace comtest
