#include "femap/com/ComApplication.h"

#include "femap/com/BulkArrays.h"
#include "femap/com/BulkCapabilities.h"
#include "femap/com/BulkMesh.h"
#include "femap/com/BulkVectors.h"
#include "femap/com/Codes.h"
#include "femap/com/ComChanges.h"
#include "femap/com/FemapProcesses.h"
#include "femap/com/FemapWindow.h"
#include "femap/com/bulk/PrefetchingEntity.h"
#include "femap/com/bulk/PrefetchingVector.h"
#include "system/RuntimeError.h"
#include "windows/Processes.h"
#include "windows/Text.h"

#include <algorithm>
#include <objbase.h>

namespace femap::com
{

using sys::ErrorNumber;
using sys::RuntimeError;
using windows::describe;

namespace
{

constexpr const wchar_t* progID = L"femap.model";

CLSID femapClass()
{
    CLSID id{};
    const HRESULT result = CLSIDFromProgID(progID, &id);
    if (FAILED(result))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP is not installed on this machine: " + describe(result));
    return id;
}

// The bulk fetcher for "Node", "Elem", "Prop" or "Matl"; null for any other word.
std::unique_ptr<bulk::EntityFetcher> makeFetcher(const std::string& word, const ComContext& context,
                                                 Dispatch& object)
{
    if (word == "Node")
        return std::make_unique<MeshFetcher>(context, bulkNodes, object);
    if (word == "Elem")
        return std::make_unique<MeshFetcher>(context, bulkElements, object);
    if (word == "Prop")
        return std::make_unique<ArrayFetcher>(context, propertyArray, object);
    if (word == "Matl")
        return std::make_unique<ArrayFetcher>(context, materialArray, object);
    return nullptr;
}

template <class Fetcher, class Vector>
std::unique_ptr<OutputVector> withFetcher(const ComContext& context, std::unique_ptr<Vector> plain)
{
    if (context.bulk == nullptr)
        return plain;
    auto fetcher = std::make_unique<Fetcher>(context, *plain);
    return std::make_unique<bulk::PrefetchingVector>(std::move(plain), std::move(fetcher),
                                                     context.bulk->vectors);
}

// FEMAP since 2020.1 has results by the names that end in V2. It may still answer the names that
// these supersede, so their being there tells nothing.
bool isClassic(Connection& connection, Dispatch& application)
{
    if (!connection.isClassic)
        connection.isClassic =
            !application.has("feResults") || !application.object("feResults").has("VectorsV2");
    return *connection.isClassic;
}

Dispatch applicationOf(const std::shared_ptr<Connection>& connection)
{
    return {connection->application(), "application", connection};
}

// 0 when FEMAP does not tell its window.
DWORD processOfFemap(const std::shared_ptr<Connection>& connection)
{
    Dispatch application = applicationOf(connection);
    return processOf(mainWindowOf(application));
}

// Window handles fit into 32 bits, and FEMAP takes them as such numbers.
int handleNumber(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

}  // namespace

ComApplication::ComApplication(IDispatch* application, SelectionDialogs* dialogs,
                               std::shared_ptr<RetryPolicy> retryPolicy, Reading reading)
    : ComApplication(application, dialogs, std::make_shared<Connection>(std::move(retryPolicy)),
                     reading)
{}

ComApplication::ComApplication(IDispatch* application, SelectionDialogs* dialogs,
                               const std::shared_ptr<Connection>& connection, Reading reading)
    : application_(application, "application", connection),
      dialogs_(dialogs),
      classic_(isClassic(*connection, application_)),
      bulk_(reading == Reading::InBulk ? std::make_shared<BulkCapabilities>() : nullptr)
{}

double ComApplication::Info_Version()
{
    return application_.call("Info_Version").real();
}

void ComApplication::feAppVisible(bool visible)
{
    application_.call("feAppVisible", visible);
}

ReturnCode ComApplication::feFileOpen(bool useDialog, const std::string& path)
{
    return static_cast<ReturnCode>(application_.call("feFileOpen", useDialog, path).number());
}

std::string ComApplication::ModelName()
{
    return application_.call("ModelName").text();
}

int ComApplication::feAppGetAllModels()
{
    LONG count = 0;
    Variant ids;
    application_.call("feAppGetAllModels", &count, &ids);
    return static_cast<int>(count);
}

bool ComApplication::feFileIsModified()
{
    return code(application_.call("feFileIsModified")) == ReturnCode::Ok;
}

int ComApplication::Info_ActiveID(EntityType type)
{
    return application_.call("Info_ActiveID", static_cast<int>(type)).number();
}

void ComApplication::feAppLock()
{
    application_.call("feAppLock");
    ++locks_;
}

void ComApplication::feAppUnlock()
{
    application_.call("feAppUnlock");
    locks_ = std::max(locks_ - 1, 0);
}

void ComApplication::feAppMessage(MessageColour colour, const std::string& text)
{
    application_.call("feAppMessage", static_cast<int>(colour), messageForFemap(text));
}

void ComApplication::feAppStatusShow(bool enable, int maximum)
{
    application_.call("feAppStatusShow", enable, maximum);
}

void ComApplication::feAppStatusUpdate(int current)
{
    application_.call("feAppStatusUpdate", current);
}

int ComApplication::feAppRegisterAddInPane(const AddInPane& pane)
{
    return application_
        .call("feAppRegisterAddInPane", pane.regster, handleNumber(pane.windowID),
              handleNumber(pane.messageID), pane.bPreventClose, pane.bPreventHide, pane.location,
              pane.neighborID)
        .number();
}

std::unique_ptr<EntitySet> ComApplication::feSet()
{
    return std::make_unique<ComSet>(context(), application_.object("feSet"));
}

std::unique_ptr<Entity> ComApplication::entity(const std::string& word)
{
    auto plain = std::make_unique<ComEntity>(application_.object("fe" + word));
    if (bulk_ == nullptr)
        return plain;
    std::unique_ptr<bulk::EntityFetcher> fetcher = makeFetcher(word, context(), plain->object());
    if (fetcher == nullptr)
        return plain;
    std::shared_ptr<bulk::Capability>& capability = bulk_->entities[word];
    if (capability == nullptr)
        capability = std::make_shared<bulk::Capability>();
    return std::make_unique<bulk::PrefetchingEntity>(std::move(plain), std::move(fetcher),
                                                     capability);
}

std::unique_ptr<OutputVector> ComApplication::feOutput()
{
    const ComContext own = context();
    if (classic_)
        return withFetcher<ClassicVectorFetcher>(own, std::make_unique<ClassicOutputVector>(own));
    return withFetcher<ModernVectorFetcher>(own, std::make_unique<ModernOutputVector>(own));
}

std::unique_ptr<Function> ComApplication::feFunction()
{
    return std::make_unique<ComFunction>(context(), application_.object("feFunction"));
}

std::unique_ptr<LoadDefinition> ComApplication::feLoadDefinition()
{
    return std::make_unique<ComLoadDefinition>(application_.object("feLoadDefinition"));
}

std::unique_ptr<ModelChanges> ComApplication::changes()
{
    return makeChanges(context());
}

MassProperties ComApplication::feMeasureMeshMassProp(int elementSet, int coordinateSystem,
                                                     bool printResults, bool printDetails)
{
    MassProperties mass;
    Variant structuralCG;
    Variant nonStructuralCG;
    Variant totalCG;
    Variant inertia;
    Variant inertiaCG;
    const ReturnCode returned = code(application_.call(
        "feMeasureMeshMassProp", elementSet, coordinateSystem, printResults, printDetails,
        &mass.length, &mass.area, &mass.volume, &mass.structuralMass, &mass.nonStructuralMass,
        &mass.totalMass, &structuralCG, &nonStructuralCG, &totalCG, &inertia, &inertiaCG));
    mass.isNegative = returned == ReturnCode::NegativeMass;
    if (!mass.isNegative)
        demandOk(returned, "FEMAP could not measure the mass properties");
    const auto take = [](const Variant& from, std::vector<double>& to) {
        const std::vector<double> values = from.reals();
        if (values.size() != to.size())
            throw RuntimeError(ErrorNumber::ObjectFailed,
                               "FEMAP returned mass properties of a wrong size");
        to = values;
    };
    take(structuralCG, mass.structuralCG);
    take(nonStructuralCG, mass.nonStructuralCG);
    take(totalCG, mass.totalCG);
    take(inertia, mass.inertia);
    take(inertiaCG, mass.inertiaCG);
    return mass;
}

ComContext ComApplication::context()
{
    return {application_, dialogs_, classic_, bulk_, locks_};
}

std::unique_ptr<Application> ComConnector::attach()
{
    if (std::unique_ptr<Application> same = given())
        return same;
    IUnknown* found = nullptr;
    HRESULT result = retryPolicy_->whileBusy(
        {"COM", "GetActiveObject"}, [&] { return GetActiveObject(femapClass(), nullptr, &found); });
    if (FAILED(result))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           whyNoneIsFound(running()) + ": " + describe(result));
    IDispatch* application = nullptr;
    result = retryPolicy_->whileBusy({"COM", "QueryInterface"}, [&] {
        return found->QueryInterface(IID_PPV_ARGS(&application));
    });
    found->Release();
    if (FAILED(result))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "The running FEMAP does not answer: " + describe(result));
    return give(application);
}

std::unique_ptr<Application> ComConnector::create()
{
    if (std::unique_ptr<Application> same = given())
        return same;
    IDispatch* application = nullptr;
    const CLSID id = femapClass();
    const HRESULT result = retryPolicy_->whileBusy({"COM", "CoCreateInstance"}, [&] {
        return CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&application));
    });
    if (FAILED(result))
        throw RuntimeError(ErrorNumber::ObjectFailed,
                           "FEMAP could not be started: " + describe(result));
    return give(application);
}

RunningFemaps ComConnector::running()
{
    const std::vector<FemapProcess> processes = femapProcesses();
    const std::shared_ptr<Connection> connection = given_.lock();
    const bool isAsked = processes.size() > 1 && connection != nullptr;
    return runningAmong(processes, windows::isElevated(GetCurrentProcess()),
                        isAsked ? processOfFemap(connection) : 0);
}

// Null when none is in use, or when it has ended.
std::unique_ptr<Application> ComConnector::given()
{
    const std::shared_ptr<Connection> connection = given_.lock();
    if (connection == nullptr || !connection->isAlive())
        return nullptr;
    return std::make_unique<ComApplication>(connection->application(), dialogs_, connection,
                                            reading_);
}

std::unique_ptr<Application> ComConnector::give(IDispatch* application)
{
    const auto connection = std::make_shared<Connection>(retryPolicy_, application);
    given_ = connection;
    std::unique_ptr<Application> first = given();
    Dispatch own = applicationOf(connection);
    mainWindowOf(own);  // now, for a busy FEMAP does not tell it
    return first;
}

// A window that handles no messages would keep even a question waiting. Where FEMAP did not tell
// its window, the question itself finds out.
bool ComConnector::isAnswering()
{
    const std::shared_ptr<Connection> connection = given_.lock();
    if (connection == nullptr || !connection->isAlive())
        return true;  // the next call tells
    const HWND window = connection->mainWindow.value_or(nullptr);
    if (window != nullptr && !handlesMessages(window))
        return false;
    try {
        const RetryPolicy::NoWaits noWaits(*retryPolicy_);
        LONG count = 0;
        Variant ids;
        applicationOf(connection).call("feAppGetAllModels", &count, &ids);
        return true;
    }
    catch (const RuntimeError&) {
        return false;
    }
    catch (const ConnectionLost&) {
        return true;
    }
}

std::string messageForFemap(const std::string& text)
{
    std::string message = cutToMessage(text);
    const auto perCents = [](const std::string& s) {
        return static_cast<std::size_t>(std::count(s.begin(), s.end(), '%'));
    };
    // Doubling makes it longer: cut further until it fits with every sign doubled.
    while (!message.empty() && cutToMessage(message + std::string(perCents(message), '%')).size() <
                                   message.size() + perCents(message)) {
        do {
            message.pop_back();
        } while (!message.empty() && (static_cast<unsigned char>(message.back()) & 0x80) != 0 &&
                 (static_cast<unsigned char>(message.back()) & 0xC0) != 0xC0);
    }
    std::string result;
    for (const char c : message)
        result.append(c == '%' ? 2 : 1, c);
    return result;
}

}  // namespace femap::com
