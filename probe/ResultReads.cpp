// Results: which vectors there are, what both of FEMAP's ways say of them, entities without data.
#include "probe/Reads.h"
#include "probe/Sets.h"
#include "probe/Vectors.h"

#include <algorithm>
#include <optional>
#include <set>

namespace probe
{

namespace
{

using femap::EntityType;

constexpr std::size_t mostVectors = 60;  // that get a line of their own
constexpr std::size_t leastVectors = 5;
constexpr std::size_t mostValues = 5'000'000;  // of all of them
constexpr std::size_t mostSets = 5;
constexpr int firstElement = 8;  // location of elemental vectors
constexpr double ownFiller = -12345.5;

/// What a part needs to know of the results.
struct ResultsOfSet
{
    Session& session;
    const Object& application;
    ResultsTable& table;
    Object output;  // not there in a newer FEMAP
    int set;        // the output set that is looked at
};

std::string factsText(const VectorFacts& facts, Session& session)
{
    if (!facts.isThere)
        return facts.trouble;
    std::string text = session.report.name(facts.title);
    if (facts.location != 0)
        text += facts.location == firstElement ? ", elemental" : ", nodal";
    if (facts.hasExtremes)
        text += ", " + shown(facts.least) + " to " + shown(facts.most);
    return facts.trouble.empty() ? text : text + " (" + facts.trouble + ')';
}

VectorList listOf(const Answer& answer, std::size_t count)
{
    if (!answer.isOk())
        return {};
    return {answer.filled[count + 1].wholeNumbers(), answer.filled[count + 2].texts()};
}

// The list that the tool takes of this generation.
VectorList readList(const ResultsOfSet& results, Generation generation)
{
    Session& session = results.session;
    const Belief belief = statusAnd({VT_I4, arrayOf(VT_I4), arrayOf(VT_BSTR)});
    std::vector<Argument> filled =
        list(Argument::out(VT_I4), Argument::out(VT_VARIANT), Argument::out(VT_VARIANT));
    if (generation == Generation::Classic) {
        results.output.put("setID", list(results.set));
        std::vector<Argument> arguments = list(0, 0);
        std::ranges::move(filled, std::back_inserter(arguments));
        return listOf(session.read(results.output, "GetTitleList", belief, std::move(arguments)),
                      0);
    }
    std::vector<Argument> arguments = list(results.set, false, 0, 0);
    std::ranges::move(filled, std::back_inserter(arguments));
    return listOf(
        session.read(results.table.object(), "VectorTitlesV2", belief, std::move(arguments)), 0);
}

// AddAll(29) beside the vectors of each output set.
void probeAddAll(const ResultsOfSet& results, const std::vector<int>& sets)
{
    Session& session = results.session;
    session.report.begin("feSet.AddAll(29)");
    const std::vector<int> all = allIDs(results.application, EntityType::OutputVector);
    std::string text = shown(all);
    for (const int set : sampleOf(sets, mostSets)) {
        const FemapSet vectors = setOf(results.application, {});
        const Answer filled = results.table.object().call(results.table.named("Vectors"),
                                                          list(set, vectors.number, true));
        const Answer inSet =
            vectors.object.call("GetArray", list(Argument::out(VT_I4), Argument::out(VT_VARIANT)));
        const std::vector<int> own =
            inSet.isDone() ? inSet.filled[1].wholeNumbers() : std::vector<int>();
        text += "; output set " + std::to_string(set) + " has " +
                (filled.isOk() ? std::to_string(own.size()) + (own == all ? ", the same" : "")
                               : session.reason(filled));
    }
    text += "; active is " +
            std::to_string(results.application.call("Info_ActiveID", list(28)).value.number());
    session.report.end(Verdict::Found, text);
    session.report.answer(Question::VectorsOfAddAll, "AddAll(29) gives " + text);
    const Answer fresh = session.ask(results.output, "setID");
    if (!results.output.isThere()) {
        session.tell(Verdict::Same, "feOutput is absent, as believed", fresh);
        return;
    }
    session.tell(Verdict::Found, session.shown(fresh), fresh);
    session.report.answer(Question::VectorsOfAddAll,
                          "setID of a fresh feOutput is " + session.shown(fresh.value));
}

bool isNearlySame(double left, double right)
{
    constexpr double tolerance = 1e-6;  // FEMAP keeps results as single reals
    return std::abs(left - right) <= tolerance * std::max(std::abs(left), std::abs(right));
}

// What both ways and our own look at all values say of one vector. Returns how many it has at
// elements.
std::size_t probeVector(const ResultsOfSet& results, int vector)
{
    Session& session = results.session;
    session.report.begin("vector " + std::to_string(vector));
    const double start = session.system.monotonicSeconds();
    Column column = results.table.column(results.set, vector, 0, 0);
    std::string text = "feResults: " + factsText(column.facts, session) + ", " +
                       std::to_string(column.values.size()) + " values";
    bool isSame = column.facts.isThere && column.facts.trouble.empty();
    int location = column.facts.location;
    if (!column.values.empty() && column.facts.hasExtremes) {
        const auto [least, most] = std::ranges::minmax(column.values);
        const bool agrees =
            isNearlySame(least, column.facts.least) && isNearlySame(most, column.facts.most);
        text +=
            agrees ? " that agree" : ", by which they are " + shown(least) + " to " + shown(most);
        isSame = isSame && agrees;
    }
    if (results.output.isThere()) {
        const VectorFacts facts = factsByOutput(session, results.output, results.set, vector);
        location = std::max(location, facts.location);
        const bool agrees = facts.title == column.facts.title &&
                            isNearlySame(facts.least, column.facts.least) &&
                            isNearlySame(facts.most, column.facts.most);
        text += "; feOutput: " + (agrees ? std::string("the same") : factsText(facts, session));
        isSame = isSame && agrees;
    }
    Answer all;
    all.milliseconds = 1000 * (session.system.monotonicSeconds() - start);
    session.tell(isSame ? Verdict::Same : Verdict::Differs, text, all);
    return location == firstElement ? column.values.size() : 0;
}

void probeInfo(const ResultsOfSet& results, int vector)
{
    Session& session = results.session;
    session.read(results.table.object(), results.table.named("VectorInfo"),
                 statusAnd({VT_I4, VT_I4, VT_BOOL, VT_BOOL, VT_I4}),
                 list(results.set, vector, Argument::out(VT_I4), Argument::out(VT_I4),
                      Argument::out(VT_BOOL), Argument::out(VT_BOOL), Argument::out(VT_I4)));
    session.read(results.table.object(), results.table.named("VectorTitle"), statusAnd({VT_BSTR}),
                 list(results.set, vector, Argument::out(VT_BSTR)));
    session.read(results.table.object(), results.table.named("AddColumn"),
                 statusAnd({VT_I4, arrayOf(VT_I4)}),
                 list(results.set, vector, false, Argument::out(VT_I4), Argument::out(VT_VARIANT)));
    session.read(results.table.object(), "Populate", statusAnd());
    session.read(results.table.object(), "NumberOfRows", {VT_I4});
    session.read(results.table.object(), "GetColumn", statusAnd({arrayOf(VT_I4), arrayOf(VT_R8)}),
                 list(0, Argument::out(VT_VARIANT), Argument::out(VT_VARIANT)));
    session.read(results.table.object(), "GetColumnMinMax", statusAnd({VT_I4, VT_I4, VT_R8, VT_R8}),
                 list(0, 0, Argument::out(VT_I4), Argument::out(VT_I4), Argument::out(VT_R8),
                      Argument::out(VT_R8)));
    session.read(results.table.object(), "clear", statusAnd());
}

// An entity at which the vector has no value, by the rows of the table.
std::optional<int> entityWithout(const Column& column, const std::vector<int>& all, double filler)
{
    const std::set<int> rows(column.ids.begin(), column.ids.end());
    for (const int id : all)
        if (!rows.contains(id))
            return id;
    for (std::size_t i = 0; i < column.ids.size() && i < column.values.size(); ++i)
        if (column.values[i] == filler)
            return column.ids[i];
    return std::nullopt;
}

void tellAnswer(Session& session, const std::string& what, const Answer& answer)
{
    const std::string text =
        answer.isDone() ? session.shown(answer) : "error " + session.reason(answer);
    session.tell(Verdict::Found, text, answer);
    session.report.answer(Question::ValueWithoutData, what + ": " + text);
}

// What each way gives for an entity without data.
void probeWithout(const ResultsOfSet& results, int vector, int entity)
{
    Session& session = results.session;
    const std::string member = results.table.named("EntityValue");
    tellAnswer(session, "feResults." + member,
               session.ask(results.table.object(), member,
                           list(results.set, vector, entity, Argument::out(VT_R8))));
    results.table.column(results.set, vector, 0, 0);
    tellAnswer(
        session, "feResults.GetValue",
        session.ask(results.table.object(), "GetValue", list(entity, 0, Argument::out(VT_R8))));
    if (!results.output.isThere())
        return;
    results.output.put("setID", list(results.set));
    results.output.call("Get", list(vector));
    tellAnswer(session, "feOutput.Value", session.ask(results.output, "Value", list(entity)));
}

// The filler where the table has rows for all elements.
void probeFiller(const ResultsOfSet& results, int vector)
{
    Session& session = results.session;
    const Object& table = results.table.object();
    const FemapSet elements = setOfAll(results.application, EntityType::Element);
    const std::vector<int> all = allIDs(results.application, EntityType::Element);
    const Column plain = results.table.column(results.set, vector, 0, 0);
    session.report.line("rows of vector " + std::to_string(vector), Verdict::Found,
                        shown(plain.ids) + ", of " + std::to_string(all.size()) + " elements");
    const Answer filler = session.read(table, "ValueForNonExisting", {VT_R8});
    table.put("ValueForNonExisting", list(ownFiller));
    const Column limited = results.table.column(results.set, vector, firstElement, elements.number);
    const auto fillers = std::ranges::count(limited.values, ownFiller);
    session.report.line("  limited to all elements", Verdict::Found,
                        shown(limited.ids) + " rows, " + std::to_string(fillers) +
                            " with the filler that was put" +
                            (limited.facts.trouble.empty() ? "" : ", " + limited.facts.trouble));
    table.put("ValueForNonExisting", list(filler.value.real()));
    const std::optional<int> without = fillers > 0 ? entityWithout(limited, {}, ownFiller)
                                                   : entityWithout(plain, all, filler.value.real());
    if (without)
        probeWithout(results, vector, *without);
    else
        session.report.line("an entity without data", Verdict::NotTried,
                            "this vector has a value at each element");
}

// A line for each vector. Returns the elemental one with the fewest values: it is the best to find
// elements without data.
std::optional<int> probeVectors(const ResultsOfSet& results, const std::vector<int>& ids)
{
    const int nodes = results.application.call("Info_Count", list(7)).value.number();
    const std::size_t most = std::clamp(mostValues / static_cast<std::size_t>(std::max(nodes, 1)),
                                        leastVectors, mostVectors);
    if (ids.size() > most)
        results.session.report.say("Of " + std::to_string(ids.size()) + " vectors " +
                                   std::to_string(most) + ", evenly spread:");
    std::optional<int> chosen;
    std::size_t fewest = 0;
    for (const int id : sampleOf(ids, most)) {
        const std::size_t count = probeVector(results, id);
        if (count > 0 && (!chosen || count < fewest)) {
            chosen = id;
            fewest = count;
        }
    }
    return chosen;
}

void probeOldNames(Session& session, const Object& application)
{
    const FemapSet set = setOf(application, {});
    const struct
    {
        const Object& object;
        std::string member;
    } olds[] = {
        {application, "feOutput"}, {application, "feDeleteOutput"}, {set.object, "SelectMultiID"}};
    for (const auto& old : olds) {
        session.report.begin(old.object.name() + '.' + old.member + ", an old name");
        DISPID number = DISPID_UNKNOWN;
        const Answer answer = old.object.look(old.member, number);
        const std::string text = answer.isDone()
                                     ? "still answered, number " + std::to_string(number)
                                     : "not answered: " + session.reason(answer);
        session.tell(Verdict::Found, text, answer);
        session.report.answer(Question::OldNames, old.member + ": " + text);
    }
    const Answer output = session.ask(application, "feOutput");
    const std::string windows =
        output.windows.empty() ? ", no window appeared" : ", FEMAP showed a window";
    session.tell(Verdict::Found,
                 (output.isDone() ? session.shown(output) : session.reason(output)) + windows,
                 output);
    session.report.answer(Question::OldNames, "feOutput called" + windows);
}

void probeNumbering(Session& session, const Object& application, const std::vector<int>& ids)
{
    for (const std::string member :
         {"feOutputConvertV2020VectorIDToV2019V2", "feOutputConvertV2019VectorIDToV2020V2"})
        for (const int id : sampleOf(ids, 3))
            session.read(application, member, {VT_I4}, list(id));
}

}  // namespace

void probeResults(Session& session, const Object& application, Generation generation)
{
    session.report.section("C3 Results");
    if (generation == Generation::Modern)
        probeOldNames(session, application);
    const std::vector<int> sets = allIDs(application, EntityType::OutputSet);
    session.report.line("output sets", sets.empty() ? Verdict::NotTried : Verdict::Found,
                        shown(sets));
    if (sets.empty())
        return;
    const int active = application.call("Info_ActiveID", list(28)).value.number();
    ResultsTable table(session, application, generation);
    const ResultsOfSet results{session, application, table, application.object("feOutput"),
                               active > 0 ? active : sets.front()};
    probeAddAll(results, sets);
    const VectorList vectors = readList(results, generation);
    if (vectors.ids.empty()) {
        session.report.line("output vectors", Verdict::NotTried, "none are listed");
        return;
    }
    if (generation == Generation::Modern)
        probeNumbering(session, application, vectors.ids);
    probeInfo(results, vectors.ids.front());
    if (const std::optional<int> few = probeVectors(results, vectors.ids))
        probeFiller(results, *few);
}

}  // namespace probe
