#include "probe/Codes.h"

#include "windows/Text.h"

#include <oleauto.h>
#include <string_view>

namespace probe
{

namespace
{

struct CodeWords
{
    HRESULT code;
    std::string_view words;
};

// clang-format off
constexpr CodeWords codeWords[] = {
    {S_OK,                                         "done"},
    {E_ACCESSDENIED,                               "access is denied"},
    {E_FAIL,                                       "failed, without a reason"},
    {E_INVALIDARG,                                 "an argument is wrong"},
    {E_NOINTERFACE,                                "no such interface"},
    {E_NOTIMPL,                                    "not implemented"},
    {E_POINTER,                                    "there is no object"},
    {DISP_E_BADINDEX,                              "bad index"},
    {DISP_E_BADPARAMCOUNT,                         "wrong number of arguments"},
    {DISP_E_EXCEPTION,                             "FEMAP raised an error"},
    {DISP_E_MEMBERNOTFOUND,                        "no such member, or not of this kind"},
    {DISP_E_OVERFLOW,                              "overflow"},
    {DISP_E_PARAMNOTFOUND,                         "an argument is missing"},
    {DISP_E_TYPEMISMATCH,                          "type mismatch"},
    {DISP_E_UNKNOWNNAME,                           "no such name"},
    {CO_E_CLASSSTRING,                             "no such program is registered"},
    {CO_E_SERVER_EXEC_FAILURE,                     "the server could not be started"},
    {MK_E_UNAVAILABLE,                             "no such object is running"},
    {REGDB_E_CLASSNOTREG,                          "the class is not registered"},
    {RPC_E_CALL_REJECTED,                          "FEMAP rejected the call"},
    {RPC_E_CANTCALLOUT_ININPUTSYNCCALL,            "no call can be made inside a sent message"},
    {RPC_E_DISCONNECTED,                           "FEMAP has disconnected its object"},
    {RPC_E_SERVERCALL_REJECTED,                    "FEMAP rejected the call"},
    {RPC_E_SERVERCALL_RETRYLATER,                  "FEMAP is busy"},
    {RPC_E_SERVERFAULT,                            "FEMAP crashed inside the call"},
    {RPC_E_SERVER_DIED,                            "FEMAP ended inside the call"},
    {HRESULT_FROM_WIN32(RPC_S_CALL_FAILED),        "FEMAP ended inside the call"},
    {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), "FEMAP is gone"},
};
// clang-format on

}  // namespace

std::string codeText(HRESULT result)
{
    std::string ofWindows = windows::describe(result);
    for (const CodeWords& each : codeWords)
        if (each.code == result)
            return ofWindows.substr(0, ofWindows.find(':')) + ": " + std::string(each.words);
    return ofWindows;
}

}  // namespace probe
