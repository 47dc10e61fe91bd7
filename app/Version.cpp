#include "app/Version.h"

namespace app
{

std::string_view version()
{
    return VELMAR_VERSION;  // given by the build
}

}  // namespace app
