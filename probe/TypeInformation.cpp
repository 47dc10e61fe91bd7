#include "probe/TypeInformation.h"

#include "probe/Codes.h"

namespace probe
{

namespace
{

VARTYPE typeOf(ITypeInfo& info, const TYPEDESC& type);

// A type that the library defines itself: an enumeration, another name of a type, an interface.
VARTYPE typeOfReference(ITypeInfo& info, HREFTYPE reference)
{
    ITypeInfo* meant = nullptr;
    TYPEATTR* attributes = nullptr;
    if (FAILED(info.GetRefTypeInfo(reference, &meant)))
        return VT_USERDEFINED;
    VARTYPE type = VT_USERDEFINED;
    if (SUCCEEDED(meant->GetTypeAttr(&attributes))) {
        type = attributes->typekind == TKIND_ENUM    ? VARTYPE{VT_I4}
               : attributes->typekind == TKIND_ALIAS ? typeOf(*meant, attributes->tdescAlias)
                                                     : VARTYPE{VT_DISPATCH};
        meant->ReleaseTypeAttr(attributes);
    }
    meant->Release();
    return type;
}

VARTYPE typeOf(ITypeInfo& info, const TYPEDESC& type)
{
    if (type.vt == VT_USERDEFINED)
        return typeOfReference(info, type.hreftype);
    if (type.vt != VT_PTR || type.lptdesc == nullptr)
        return type.vt;
    const VARTYPE inner = typeOf(info, *type.lptdesc);
    const bool isObject = type.lptdesc->vt == VT_USERDEFINED && inner == VT_DISPATCH;
    return isObject ? inner : static_cast<VARTYPE>(VT_BYREF | inner);
}

void take(Declarations& declarations, ITypeInfo& info, const FUNCDESC& function)
{
    if (function.invkind != INVOKE_FUNC && function.invkind != INVOKE_PROPERTYGET)
        return;
    Declared& declared = declarations[function.memid];
    declared.isMethod = function.invkind == INVOKE_FUNC;
    declared.returned = typeOf(info, function.elemdescFunc.tdesc);
    for (SHORT i = 0; i < function.cParams; ++i)
        declared.arguments.push_back(typeOf(info, function.lprgelemdescParam[i].tdesc));
}

void takeVariable(Declarations& declarations, ITypeInfo& info, const VARDESC& variable)
{
    declarations[variable.memid].returned = typeOf(info, variable.elemdescVar.tdesc);
}

}  // namespace

std::optional<Declarations> declarationsOf(IDispatch& object, std::string& why)
{
    UINT count = 0;
    ITypeInfo* info = nullptr;
    TYPEATTR* attributes = nullptr;
    HRESULT result = object.GetTypeInfoCount(&count);
    if (SUCCEEDED(result) && count == 0) {
        why = "the object has none";
        return std::nullopt;
    }
    if (SUCCEEDED(result))
        result = object.GetTypeInfo(0, LOCALE_SYSTEM_DEFAULT, &info);
    if (SUCCEEDED(result))
        result = info->GetTypeAttr(&attributes);
    if (FAILED(result)) {
        why = codeText(result);
        return std::nullopt;
    }
    Declarations declarations;
    for (UINT i = 0; i < attributes->cFuncs; ++i)
        if (FUNCDESC* function = nullptr; SUCCEEDED(info->GetFuncDesc(i, &function))) {
            take(declarations, *info, *function);
            info->ReleaseFuncDesc(function);
        }
    for (UINT i = 0; i < attributes->cVars; ++i)
        if (VARDESC* variable = nullptr; SUCCEEDED(info->GetVarDesc(i, &variable))) {
            takeVariable(declarations, *info, *variable);
            info->ReleaseVarDesc(variable);
        }
    info->ReleaseTypeAttr(attributes);
    info->Release();
    return declarations;
}

}  // namespace probe
