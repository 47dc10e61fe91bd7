#include "standin/Transcript.h"

#include "femap/NumberText.h"
#include "system/RuntimeError.h"

#include <sstream>

namespace comtest
{

using namespace femap;

namespace
{

constexpr int missing = 987'654;
constexpr EntityType allTypes[] = {
    EntityType::Node,         EntityType::Element,  EntityType::Material,
    EntityType::Property,     EntityType::LoadSet,  EntityType::OutputSet,
    EntityType::OutputVector, EntityType::Function, EntityType::LoadDefinition,
};

std::string shown(const std::string& text)
{
    return text;
}
std::string shown(int number)
{
    return std::to_string(number);
}
std::string shown(double number)
{
    std::ostringstream text;
    text.precision(17);
    text << number;
    return text.str();
}
std::string shown(ReturnCode code)
{
    return std::to_string(static_cast<int>(code));
}
std::string shown(const Value& value)
{
    return std::to_string(value.index()) + ':' + toText(value);
}
std::string shown(const std::vector<double>& numbers)
{
    std::string result;
    for (const double number : numbers)
        result += shown(number) + ' ';
    return result;
}

class Writer
{
public:
    // Writes down what the question is answered, or that it is refused.
    template <class Question>
    void ask(const std::string& what, const Question& question)
    {
        try {
            lines.push_back(what + " = " + shown(question()));
        }
        catch (const sys::RuntimeError&) {
            lines.push_back(what + " is refused");
        }
    }

    Lines lines;
};

std::vector<int> idsIn(EntitySet& set)
{
    std::vector<int> ids;
    set.Reset();
    while (const int id = set.Next())
        ids.push_back(id);
    return ids;
}

std::vector<int> idsOf(Application& femap, EntityType type)
{
    const std::unique_ptr<EntitySet> set = femap.feSet();
    set->AddAll(type);
    return idsIn(*set);
}

std::string shown(EntitySet& set)
{
    std::string result;
    for (const int id : idsIn(set))
        result += std::to_string(id) + ' ';
    return result;
}

struct Field
{
    const char* member;
    int index = -1;
};

void askFields(Writer& writer, MemberObject& object, const std::string& what,
               const std::vector<Field>& fields)
{
    for (const Field& field : fields)
        writer.ask(what + ' ' + field.member + ' ' + std::to_string(field.index), [&] {
            return field.index < 0 ? object.member(field.member)
                                   : object.member(field.member, field.index);
        });
}

// The last ones of each row are refused.
const std::vector<Field> nodeFields = {{"ID"},      {"x"},     {"Y"},     {"z"},       {"defCSys"},
                                       {"outCSys"}, {"layer"}, {"color"}, {"Visible"}, {"x", 0}};
const std::vector<Field> elementFields = {
    {"ID"},          {"type"},          {"propID"},   {"topology"}, {"geomID"},    {"orientID"},
    {"PlateOffset"}, {"MaterialAngle"}, {"node", 0},  {"node", 4},  {"orient", 0}, {"orient", 2},
    {"orient", 11},  {"node", 20},      {"node", -2}, {"node"},     {"title"}};
const std::vector<Field> propertyFields = {
    {"ID"},      {"title"},   {"color"},    {"layer"},     {"type"}, {"matlID"},   {"refCS"},
    {"pval", 0}, {"pval", 7}, {"PVAL", 20}, {"pval", 200}, {"pval"}, {"thickness"}};
const std::vector<Field> materialFields = {{"ID"},
                                           {"title"},
                                           {"Ex"},
                                           {"Ey"},
                                           {"Ez"},
                                           {"Gx"},
                                           {"Gy"},
                                           {"Gz"},
                                           {"Nuxy"},
                                           {"Nuyz"},
                                           {"Nuxz"},
                                           {"Alphaxx"},
                                           {"Alphayy"},
                                           {"Alphazz"},
                                           {"Alphaxy"},
                                           {"Alphayz"},
                                           {"Alphazx"},
                                           {"Kxx"},
                                           {"Kyy"},
                                           {"Kzz"},
                                           {"Kxy"},
                                           {"Kyz"},
                                           {"Kzx"},
                                           {"Cp"},
                                           {"Density"},
                                           {"Damping"},
                                           {"RefTemp"},
                                           {"TensionLimit1"},
                                           {"TensionLimit2"},
                                           {"CompressionLimit1"},
                                           {"CompressionLimit2"},
                                           {"ShearLimit"},
                                           {"TsaiWu"},
                                           {"mval", 3},
                                           {"Alphaxz"},
                                           {"Kxz"}};
const std::vector<Field> loadFields = {
    {"ID"},      {"setID"},   {"meshID"},     {"geomID"},   {"geomTYPE"}, {"LoadDefinitionID"},
    {"type"},    {"subtype"}, {"FaceNumber"}, {"expanded"}, {"temp"},     {"phase"},
    {"load", 0}, {"load", 3}, {"load", 9}};

void askEntities(Writer& writer, Application& femap, const std::string& word, EntityType type,
                 const std::vector<Field>& fields)
{
    const std::unique_ptr<Entity> entity = femap.entity(word);
    std::vector<int> ids = idsOf(femap, type);
    if (ids.size() > 4)  // each field is a call to the other process
        ids = {ids.front(), ids[ids.size() / 2], ids.back()};
    ids.push_back(missing);  // leaves the entity before in place
    for (const int id : ids) {
        const std::string what = word + ' ' + std::to_string(id);
        writer.ask(what, [&] { return entity->Get(id); });
        writer.ask(what + " Type", [&] { return entity->Type(); });
        askFields(writer, *entity, what, fields);
    }
}

}  // namespace

Lines ofApplication(Application& femap)
{
    Writer writer;
    writer.ask("name", [&] { return femap.ModelName(); });
    writer.ask("models", [&] { return femap.feAppGetAllModels(); });
    for (const EntityType type : {EntityType::LoadSet, EntityType::OutputSet})
        writer.ask("active " + shown(static_cast<int>(type)),
                   [&] { return femap.Info_ActiveID(type); });
    writer.ask("modified", [&] { return femap.feFileIsModified(); });
    writer.ask("pane", [&] { return femap.feAppRegisterAddInPane({}); });
    writer.ask("a word that FEMAP lacks", [&] { return femap.entity("Nothing")->Type(); });
    return writer.lines;
}

Lines ofSets(Application& femap)
{
    Writer writer;
    for (const EntityType type : allTypes) {
        const std::unique_ptr<EntitySet> set = femap.feSet();
        const std::string what = "set " + shown(static_cast<int>(type));
        writer.ask(what + " fresh", [&] { return set->count(); });
        writer.ask(what + " AddAll", [&] { return set->AddAll(type); });
        writer.ask(what + " count", [&] { return set->count(); });
        writer.ask(what, [&] { return shown(*set); });
        writer.ask(what + " behind the end", [&] { return set->Next(); });
        const std::unique_ptr<EntitySet> copy = femap.feSet();
        copy->AddAll(EntityType::Property);
        writer.ask(what + " Copy", [&] { return copy->Copy(set->ID()); });
        writer.ask(what + " copied", [&] { return shown(*copy); });
        writer.ask(what + " Copy of none", [&] { return copy->Copy(missing); });
    }
    return writer.lines;
}

Lines ofSelections(Application& femap, const std::function<void(const char*)>& pick)
{
    Writer writer;
    const std::unique_ptr<EntitySet> set = femap.feSet();
    for (const char* const answer : {"1-3 5", "cancel", "all", "missing", "2", "fail", "999999"})
        for (const bool clear : {false, true}) {
            pick(answer);
            writer.ask(std::string("Select ") + answer, [&] {
                return set->Select(EntityType::Property, clear, "Eigenschaften wählen");
            });
            writer.ask("selected", [&] { return shown(*set); });
        }
    const int loadSet = femap.Info_ActiveID(EntityType::LoadSet);
    for (const char* const answer : {"1-2", "cancel", "all"}) {
        pick(answer);
        writer.ask(std::string("SelectMultiID ") + answer, [&] {
            return set->SelectMultiID(EntityType::LoadDefinition, loadSet, "Load definitions");
        });
        writer.ask("selected", [&] { return shown(*set); });
    }
    return writer.lines;
}

Lines ofEntities(Application& femap)
{
    Writer writer;
    askEntities(writer, femap, "Node", EntityType::Node, nodeFields);
    askEntities(writer, femap, "Elem", EntityType::Element, elementFields);
    askEntities(writer, femap, "Prop", EntityType::Property, propertyFields);
    askEntities(writer, femap, "Matl", EntityType::Material, materialFields);
    return writer.lines;
}

Lines ofOutputVectors(Application& femap)
{
    Writer writer;
    const std::unique_ptr<OutputVector> vector = femap.feOutput();
    writer.ask("fresh vector ID", [&] { return vector->ID(); });
    writer.ask("fresh vector title", [&] { return vector->Title(); });
    writer.ask("fresh vector classic", [&] { return vector->classicID(); });
    writer.ask("fresh vector maximum", [&] { return vector->maxval(); });
    writer.ask("fresh vector minimum", [&] { return vector->minval(); });
    writer.ask("fresh vector at 1", [&] { return vector->Value(1); });
    std::vector<int> ids = idsOf(femap, EntityType::OutputVector);
    ids.push_back(missing);
    for (const int id : ids) {
        const std::string what = "vector " + shown(id);
        // Which code refuses differs between the generations.
        writer.ask(what, [&] { return shown(vector->Get(id) == ReturnCode::Ok ? 1 : 0); });
        writer.ask(what + " ID", [&] { return vector->ID(); });
        writer.ask(what + " title", [&] { return vector->Title(); });
        writer.ask(what + " classic", [&] { return vector->classicID(); });
        writer.ask(what + " maximum", [&] { return vector->maxval(); });
        writer.ask(what + " minimum", [&] { return vector->minval(); });
        for (const int entity : {1, 2, 17, missing})
            writer.ask(what + " at " + shown(entity), [&] { return vector->Value(entity); });
        askFields(writer, *vector, what, {{"maxval"}, {"minval"}, {"nonsense"}, {"nonsense", 1}});
    }
    return writer.lines;
}

Lines ofFunctions(Application& femap, const std::function<void(const char*)>& pick)
{
    Writer writer;
    const std::unique_ptr<Function> function = femap.feFunction();
    const auto askLoaded = [&](const std::string& what) {
        writer.ask(what + " ID", [&] { return function->ID(); });
        writer.ask(what + " title", [&] { return function->title(); });
        writer.ask(what + " x", [&] { return function->GetFunctionList().x; });
        writer.ask(what + " y", [&] { return function->GetFunctionList().y; });
    };
    std::vector<int> ids = idsOf(femap, EntityType::Function);
    ids.push_back(missing);
    for (const int id : ids) {
        writer.ask("function " + shown(id), [&] { return function->Get(id); });
        askLoaded("function " + shown(id));
    }
    for (const char* const answer : {"1", "cancel", "2", "missing", "fail"}) {
        pick(answer);
        writer.ask(std::string("SelectID ") + answer,
                   [&] { return function->SelectID("Funktion wählen"); });
        askLoaded(answer);
    }
    return writer.lines;
}

Lines ofLoadDefinitions(Application& femap)
{
    Writer writer;
    const std::unique_ptr<LoadDefinition> definition = femap.feLoadDefinition();
    const int loadSet = femap.Info_ActiveID(EntityType::LoadSet);
    std::vector<int> ids = idsOf(femap, EntityType::LoadDefinition);
    ids.push_back(missing);
    for (const int id : ids) {
        const std::string what = "definition " + shown(id);
        writer.ask(what, [&] { return definition->Get(loadSet, id); });
        writer.ask(what + " title", [&] { return definition->title(); });
        writer.ask(what + " ID", [&] { return definition->ID(); });
        writer.ask(what + " load type", [&] { return definition->loadType(); });
        writer.ask(what + " data type", [&] { return definition->dataType(); });
        for (int walk = 0; walk < 2; ++walk) {
            definition->ResetNextLoad();
            int count = 0;
            while (const std::unique_ptr<MemberObject> load = definition->NextLoad())
                if (++count <= 2)
                    askFields(writer, *load, what + " load " + shown(count), loadFields);
            writer.ask(what + " loads", [&] { return count; });
        }
    }
    writer.ask("definition of no set", [&] { return definition->Get(missing, 1); });
    return writer.lines;
}

Lines ofMassProperties(Application& femap)
{
    Writer writer;
    const std::unique_ptr<EntitySet> all = femap.feSet();
    all->AddAll(EntityType::Element);
    const std::unique_ptr<EntitySet> none = femap.feSet();
    for (const int set : {all->ID(), none->ID(), -1, missing})
        writer.ask("mass", [&] {
            const MassProperties mass = femap.feMeasureMeshMassProp(set, 0, false, false);
            std::vector<double> numbers = {
                mass.length,   mass.area, mass.volume, mass.structuralMass, mass.nonStructuralMass,
                mass.totalMass};
            for (const auto* const more : {&mass.structuralCG, &mass.nonStructuralCG, &mass.totalCG,
                                           &mass.inertia, &mass.inertiaCG})
                numbers.insert(numbers.end(), more->begin(), more->end());
            return numbers;
        });
    writer.ask("in another coordinate system",
               [&] { return femap.feMeasureMeshMassProp(all->ID(), 1, false, false).length; });
    return writer.lines;
}

}  // namespace comtest
