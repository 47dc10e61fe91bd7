#include "femap/com/RecordingObject.h"

#include "femap/Constants.h"
#include "femap/com/Dispatch.h"
#include "windows/Text.h"

#include <algorithm>

namespace comtest
{

namespace
{

struct LoadKind
{
    femap::LoadDataType type;
    const char* object;
};

// clang-format off
constexpr LoadKind loadKinds[] = {
    {femap::LoadDataType::Mesh,                 "feLoadMesh"},
    {femap::LoadDataType::Geometry,             "feLoadGeom"},
    {femap::LoadDataType::NodalTemperature,     "feLoadNTemp"},
    {femap::LoadDataType::ElementalTemperature, "feLoadETemp"},
};
// clang-format on

}  // namespace

ULONG RecordingObject::Release()
{
    const ULONG left = --references_;
    if (left == 0)
        delete this;
    return left;
}

HRESULT RecordingObject::GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                       DISPID* numbers)
{
    const HRESULT answer = inner_->GetIDsOfNames(id, names, count, locale, numbers);
    record_.names.push_back(
        {std::string(kind_.name), windows::fromWide(names[0]), answer, numbers[0]});
    return answer;
}

HRESULT RecordingObject::Invoke(DISPID number, REFIID id, LCID locale, WORD flags,
                                DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                UINT* wrongArgument)
{
    const auto asked = std::ranges::find_if(record_.names, [&](const AskedName& one) {
        return one.interfaceName == kind_.name && one.answer == S_OK && one.number == number;
    });
    MadeCall made{std::string(kind_.name), asked->name, flags, {}, S_OK, VT_EMPTY};
    for (UINT i = parameters->cArgs; i > 0; --i)
        made.arguments.push_back(parameters->rgvarg[i - 1].vt);
    made.answer =
        inner_->Invoke(number, id, locale, flags, parameters, result, exception, wrongArgument);
    if (result != nullptr)
        made.returned = result->vt;
    record_.calls.push_back(made);

    if (made.returned == VT_DISPATCH)
        wrap(result->pdispVal, *library::interfaceOf(made.name));
    for (UINT i = 0; i < parameters->cArgs; ++i)
        if (parameters->rgvarg[i].vt == (VT_BYREF | VT_DISPATCH))
            wrap(*parameters->rgvarg[i].ppdispVal, kindOfLoad());
    return made.answer;
}

void RecordingObject::wrap(IDispatch*& object, const library::Interface& kind) const
{
    if (object != nullptr)
        object = new RecordingObject(record_, object, kind);
}

// What a load definition gives.
const library::Interface& RecordingObject::kindOfLoad() const
{
    inner_->AddRef();
    femap::com::Dispatch definition(
        inner_, "definition",
        std::make_shared<femap::com::Connection>(std::make_shared<femap::com::RetryPolicy>()));
    const auto type = static_cast<femap::LoadDataType>(definition.call("dataType").number());
    return *library::interfaceOf(std::ranges::find(loadKinds, type, &LoadKind::type)->object);
}

}  // namespace comtest
