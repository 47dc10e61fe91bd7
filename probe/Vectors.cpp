#include "probe/Vectors.h"

#include <utility>

namespace probe
{

VectorFacts factsByOutput(Session& session, const Object& output, int set, int vector)
{
    VectorFacts facts;
    output.put("setID", list(set));
    const Answer got = output.call("Get", list(vector));
    facts.isThere = got.isOk();
    if (!facts.isThere) {
        facts.trouble = "feOutput.Get: " + session.reason(got);
        return facts;
    }
    facts.title = output.call("title").value.text();
    facts.location = output.call("location").value.number();
    const Answer least = output.call("minval");
    const Answer most = output.call("maxval");
    facts.hasExtremes = least.isDone() && most.isDone();
    facts.least = least.value.real();
    facts.most = most.value.real();
    if (!facts.hasExtremes)
        facts.trouble = "minval, maxval: " + session.reason(most);
    return facts;
}

ResultsTable::ResultsTable(Session& session, const Object& application, Generation generation)
    : session_(session),
      results_(application.object("feResults")),
      isModern_(generation == Generation::Modern)
{}

std::string ResultsTable::named(const std::string& member) const
{
    return isModern_ ? member + "V2" : member;
}

Column ResultsTable::column(int set, int vector, int location, int entities)
{
    Column column;
    VectorFacts& facts = column.facts;
    const Answer title =
        results_.call(named("VectorTitle"), list(set, vector, Argument::out(VT_BSTR)));
    facts.title = title.isOk() ? title.filled[0].text() : "";
    const Answer info =
        results_.call(named("VectorInfo"),
                      list(set, vector, Argument::out(VT_I4), Argument::out(VT_I4),
                           Argument::out(VT_BOOL), Argument::out(VT_BOOL), Argument::out(VT_I4)));
    facts.location = info.isOk() ? info.filled[0].number() : 0;
    results_.call("clear");
    if (entities != 0) {
        const Answer needed = results_.call("DataNeeded", list(location, entities));
        if (!needed.isOk())
            facts.trouble = "DataNeeded: " + session_.reason(needed);
    }
    const Answer added =
        results_.call(named("AddColumn"),
                      list(set, vector, false, Argument::out(VT_I4), Argument::out(VT_VARIANT)));
    facts.isThere = added.isOk();
    if (!facts.isThere) {
        facts.trouble = named("AddColumn") + ": " + session_.reason(added);
        return column;
    }
    const std::vector<int> indices = added.filled[1].wholeNumbers();
    const int index = indices.empty() ? 0 : indices.front();
    results_.call("Populate");
    const Answer data = results_.call(
        "GetColumn", list(index, Argument::out(VT_VARIANT), Argument::out(VT_VARIANT)));
    if (data.isOk()) {
        column.ids = data.filled[0].wholeNumbers();
        column.values = data.filled[1].numbers();
    }
    else {
        facts.trouble = "GetColumn: " + session_.reason(data);
    }
    readExtremes(index, facts);
    return column;
}

void ResultsTable::readExtremes(int index, VectorFacts& facts)
{
    const Answer extremes =
        results_.call("GetColumnMinMax", list(index, 0, Argument::out(VT_I4), Argument::out(VT_I4),
                                              Argument::out(VT_R8), Argument::out(VT_R8)));
    facts.hasExtremes = extremes.isOk();
    if (!facts.hasExtremes) {
        facts.trouble = "GetColumnMinMax: " + session_.reason(extremes);
        return;
    }
    facts.least = extremes.filled[2].real();
    facts.most = extremes.filled[3].real();
}

}  // namespace probe
