// Output vectors of FEMAP's: through feOutput before 2020.1, through the results table since then.
#include "femap/com/Codes.h"
#include "femap/com/ComObjects.h"
#include "femap/com/VectorEntities.h"
#include "system/RuntimeError.h"

#include <utility>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

// Raises where a 0 stands for no value.
double believed(double value, VectorEntities& entities, int outputSet, int vectorID, int entityID)
{
    if (value == 0 && !entities.has(outputSet, vectorID, entityID))
        throw RuntimeError(ErrorNumber::ObjectFailed, noValueText(vectorID, entityID));
    return value;
}

}  // namespace

int addColumn(Dispatch& results, int outputSet, int vectorID)
{
    const std::string what = "Output vector " + std::to_string(vectorID) + " cannot be read";
    LONG columns = 0;
    Variant indices;
    demandOk(code(results.call("AddColumnV2", outputSet, vectorID, false, &columns, &indices)),
             what);
    const std::vector<int> column = indices.numbers();
    if (columns != 1 || column.empty())
        throw RuntimeError(ErrorNumber::ObjectFailed, what + ": FEMAP added no column for it");
    return column.front();
}

ClassicOutputVector::ClassicOutputVector(const ComContext& context)
    : ByName(context.application.object("feOutput")),
      set_(activeOutputSet(context.application)),
      entities_(std::make_shared<VectorEntities>(context))
{
    if (set_ != 0)
        object_.put("setID", set_);
}

ReturnCode ClassicOutputVector::Get(int vectorID)
{
    const ReturnCode returned = code(object_.call("Get", vectorID));
    if (returned == ReturnCode::Ok && vectorID != 0)
        vector_ = vectorID;
    return returned;
}

int ClassicOutputVector::ID()
{
    return object_.call("ID").number();
}

std::string ClassicOutputVector::Title()
{
    return withoutControlCharacters(object_.call("title").text());
}

double ClassicOutputVector::Value(int entityID)
{
    return believed(object_.call("Value", entityID).real(), *entities_, set_, vector_, entityID);
}

double ClassicOutputVector::maxval()
{
    return object_.call("maxval").real();
}

double ClassicOutputVector::minval()
{
    return object_.call("minval").real();
}

ModernOutputVector::ModernOutputVector(ComContext context)
    : context_(std::move(context)),
      results_(context_.application.object("feResults")),
      set_(activeOutputSet(context_.application)),
      entities_(std::make_shared<VectorEntities>(context_))
{}

femap::Value ModernOutputVector::member(const std::string& name)
{
    if (name == "maxval")
        return maxval();
    if (name == "minval")
        return minval();
    throw RuntimeError(ErrorNumber::NoSuchMember, "An output vector has no member " + name);
}

femap::Value ModernOutputVector::member(const std::string& name, int index)
{
    throw RuntimeError(ErrorNumber::NoSuchMember, "An output vector has no array member " + name +
                                                      "(" + std::to_string(index) + ")");
}

ReturnCode ModernOutputVector::Get(int vectorID)
{
    if (results_.call("VectorExistsV2", set_, vectorID).number() !=
        static_cast<int>(ReturnCode::Ok))
        return ReturnCode::NotExist;
    vector_ = vectorID;
    return ReturnCode::Ok;
}

// Empty before the first Get, as with feOutput.
std::string ModernOutputVector::Title()
{
    if (vector_ == 0)
        return {};
    OutText title;
    demandOk(code(results_.call("VectorTitleV2", set_, vector_, title.address())),
             "FEMAP knows no title of output vector " + std::to_string(vector_));
    return withoutControlCharacters(title.text());
}

int ModernOutputVector::classicID()
{
    if (vector_ == 0)
        return 0;
    return classicVectorID(context_, vector_);
}

double ModernOutputVector::Value(int entityID)
{
    double value = 0;
    demandOk(code(results_.call("EntityValueV2", set_, vector_, entityID, &value)),
             "Output vector " + std::to_string(vector_) + " has no value at " +
                 std::to_string(entityID));
    return believed(value, *entities_, set_, vector_, entityID);
}

ModernOutputVector::Extremes ModernOutputVector::extremes()
{
    if (vector_ == 0)
        return {};
    const std::string what = "The extremes of output vector " + std::to_string(vector_);
    const int limit = entities_->setOf(set_, vector_);
    Dispatch table = context_.application.object("feResults");
    const int column = addColumn(table, set_, vector_);
    demandOk(code(table.call("Populate")), what + " cannot be read");
    LONG minimumID = 0;
    LONG maximumID = 0;
    Extremes result{};
    demandOk(code(table.call("GetColumnMinMax", column, limit, &minimumID, &maximumID,
                             &result.minimum, &result.maximum)),
             what + " cannot be read");
    return result;
}

}  // namespace femap::com
