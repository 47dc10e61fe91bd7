#include "standin/ApplicationObject.h"

#include "standin/ClientWatch.h"
#include "standin/EntityObject.h"
#include "standin/Objects.h"
#include "standin/Server.h"
#include "standin/SetObject.h"
#include "system/RuntimeError.h"

#include <windows.h>

namespace standin
{

using femap::cutToMessage;
using femap::MassProperties;
using femap::MessageColour;
using sys::ErrorNumber;
using sys::RuntimeError;

namespace
{

constexpr int cancelled = static_cast<int>(ReturnCode::Cancel);

using App = ApplicationObject;

// Makes a new object at each read of the property.
template <class Made>
Variant make(App& application, Arguments&)
{
    return Variant::owning(new Made(application.server()));
}

// A handle as a 64-bit number.
Variant numberOf(HWND window)
{
    Variant result;
    result.raw()->vt = VT_I8;
    result.raw()->llVal = reinterpret_cast<INT_PTR>(window);
    return result;
}

template <auto member>
void putNumber(App& application, Arguments& arguments)
{
    application.*member = arguments.number(0);
}

void putActive(App& application, Arguments& arguments)
{
    application.putActiveID(arguments);
}

// clang-format off
constexpr Member<ApplicationObject> applicationMembers[] = {
    {"feSet",            make<SetObject>},
    {"feMatl",           make<EntityObject<neutral::Material>>},
    {"feProp",           make<EntityObject<neutral::Property>>},
    {"feNode",           make<EntityObject<neutral::Node>>},
    {"feElem",           make<EntityObject<neutral::Element>>},
    {"feFunction",       make<FunctionObject>},
    {"feOutputSet",      make<OutputSetObject>},
    {"feOutput",         make<OutputObject>},
    {"feLoadDefinition", make<LoadDefinitionObject>},
    {"feResults",        make<ResultsObject>},

    {"Info_Version",                          serve<&App::version>},
    {"hMainWnd",                              serve<&App::mainWindow>},
    {"ModelName",                             serve<&App::modelName>},
    {"Info_Count",                            serve<&App::countOf>},
    {"Info_NextID",                           serve<&App::nextIDOf>},
    {"Info_ActiveID",                         serve<&App::activeID>, putActive},
    {"DialogAutoSkip",    serve<&App::dialogAutoSkip>,    putNumber<&App::dialogAutoSkip>},
    {"DialogAutoSkipMsg", serve<&App::dialogAutoSkipMsg>, putNumber<&App::dialogAutoSkipMsg>},
    {"DialogAutoAnswer",  serve<&App::dialogAutoAnswer>,  putNumber<&App::dialogAutoAnswer>},
    {"feAppStatusShow",                       serve<&App::statusShow>},
    {"feAppStatusUpdate",                     serve<&App::statusUpdate>},
    {"feAppMessage",                          serve<&App::message>},
    {"feAppLock",                             serve<&App::lock>},
    {"feAppUnlock",                           serve<&App::unlock>},
    {"feFileOpen",                            serve<&App::fileOpen>},
    {"feFileIsModified",                      serve<&App::isFileModified>},
    {"feFileWriteNastran",                    serve<&App::fileWriteNastran>},
    {"feFileReadNastranResults",              serve<&App::fileReadNastranResults>},
    {"feMeasureMeshMassProp",                 serve<&App::measure>},
    {"feDelete",                              serve<&App::deleteOfKind>},
    {"feDeleteAll",                           serve<&App::deleteAll>},
    {"feDeleteOutput",                        serve<&App::deleteOutput>},
    {"feDeleteOutputV2",                      serve<&App::deleteOutput>},
    {"feAppVisible",                          serve<&App::visible>},
    {"feAppGetAllModels",                     serve<&App::allModels>},
    {"feAppRegisterAddInPane",                serve<&App::registerAddInPane>},
    {"feOutputConvertV2019VectorIDToV2020V2", serve<&App::convertToNew>},
    {"feOutputConvertV2020VectorIDToV2019V2", serve<&App::convertToOld>},
};
// clang-format on
static_assert(areDeclared(applicationMembers, ApplicationObject::declarations));

// As an array of 64-bit numbers.
Variant longIDs(const std::vector<LONGLONG>& ids)
{
    Variant result;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_I8, 0, static_cast<ULONG>(ids.size()));
    for (LONG i = 0; i < static_cast<LONG>(ids.size()); ++i) {
        LONGLONG id = ids[static_cast<std::size_t>(i)];
        static_cast<void>(SafeArrayPutElement(array, &i, &id));
    }
    result.raw()->vt = VT_ARRAY | VT_I8;
    result.raw()->parray = array;
    return result;
}

// A message as FEMAP shows it, which takes per cent signs for format marks: two of them show one, a
// single one is lost with the character after it.
std::string formatted(const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%')
            result += text[i];
        else if (++i < text.size() && text[i] == '%')
            result += '%';
    }
    return result;
}

}  // namespace

ApplicationObject::ApplicationObject(Server& shared)
    : ObjectOf(shared, "application"), femap_(shared.host.attach())
{}

std::span<const Member<ApplicationObject>> ApplicationObject::members()
{
    return applicationMembers;
}

ULONG ApplicationObject::Release()
{
    const ULONG left = Object::Release();
    if (endsWithLastClient_ && left == 1)
        PostQuitMessage(0);
    return left;
}

Variant ApplicationObject::mainWindow()
{
    return numberOf(window_.handle());
}

std::string ApplicationObject::modelName()
{
    if (!server().host.model && server().modes[Mode::NoModelNoName])
        return {};
    return femap_->ModelName();
}

double ApplicationObject::version()
{
    return server().isClassic ? 11.2 : 23.06;
}

int ApplicationObject::activeID(EntityType type)
{
    return femap_->Info_ActiveID(type);
}

int ApplicationObject::countOf(EntityType type)
{
    return static_cast<int>(server().host.idsOf(type).size());
}

int ApplicationObject::nextIDOf(EntityType type)
{
    const std::vector<int> ids = server().host.idsOf(type);
    return ids.empty() ? 1 : ids.back() + 1;
}

int ApplicationObject::visible(bool show)
{
    femap_->feAppVisible(show);
    return ok;
}

// FEMAP answers a file that it cannot read with a code, and says why in its message window.
int ApplicationObject::fileOpen(bool useDialog, const std::string& path)
{
    if (useDialog)
        return cancelled;
    try {
        return static_cast<int>(femap_->feFileOpen(useDialog, path));
    }
    catch (const RuntimeError& error) {
        message(static_cast<int>(MessageColour::Error), error.description());
        return failed;
    }
}

int ApplicationObject::isFileModified()
{
    return femap_->feFileIsModified() ? ok : failed;
}

int ApplicationObject::allModels(Arguments& arguments)
{
    const int count = femap_->feAppGetAllModels();
    arguments.fill(0, count);
    if (count > 0)
        arguments.fillAny(
            1, server().modes[Mode::LongModelIDs] ? longIDs({1}) : Variant(std::vector<int>{1}));
    return ok;
}

int ApplicationObject::lock()
{
    femap_->feAppLock();
    return ok;
}

int ApplicationObject::unlock()
{
    femap_->feAppUnlock();
    return ok;
}

int ApplicationObject::message(int colour, const std::string& text)
{
    femap_->feAppMessage(static_cast<MessageColour>(colour), formatted(cutToMessage(text)));
    return ok;
}

int ApplicationObject::statusShow(bool enable, int maximum)
{
    femap_->feAppStatusShow(enable, maximum);
    return ok;
}

int ApplicationObject::statusUpdate(int current)
{
    femap_->feAppStatusUpdate(current);
    return ok;
}

int ApplicationObject::registerAddInPane(Arguments& a)
{
    if (endsWithLastClient_ && a.flag(0))
        endWithProgramOf(reinterpret_cast<HWND>(static_cast<INT_PTR>(a.number(1))));
    return femap_->feAppRegisterAddInPane(
        {a.flag(0), a.number(1), a.number(2), a.flag(3), a.flag(4), a.number(5), a.number(6)});
}

int ApplicationObject::measure(Arguments& arguments)
{
    if (arguments.number(1) != 0)
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "The stand-in measures in the global coordinate system only");
    const std::vector<int> elements = server().idsIn(arguments.number(0), EntityType::Element);
    if (elements.empty() && server().modes[Mode::NothingWeighsNothing])
        return static_cast<int>(ReturnCode::NotExist);
    MassProperties mass = server().host.measure(elements);
    if (server().modes[Mode::ProductsNegated])
        for (std::vector<double>* const inertia : {&mass.inertia, &mass.inertiaCG})
            for (const std::size_t product : {1U, 3U, 4U})
                (*inertia)[product] = -(*inertia)[product];
    std::size_t index = 4;
    for (const double number : {mass.length, mass.area, mass.volume, mass.structuralMass,
                                mass.nonStructuralMass, mass.totalMass})
        arguments.fill(index++, number);
    for (const auto* const numbers :
         {&mass.structuralCG, &mass.nonStructuralCG, &mass.totalCG, &mass.inertia, &mass.inertiaCG})
        arguments.fillAny(index++, *numbers);
    return ok;
}

// The files that the stand-in reads have the numbering before 2020.1.
int ApplicationObject::convertToNew(int id)
{
    return server().shownVectorID(id);
}

int ApplicationObject::convertToOld(int id)
{
    return server().ownVectorID(id);
}

}  // namespace standin
