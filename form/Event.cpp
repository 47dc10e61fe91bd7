#include "form/Event.h"

#include <cstddef>

namespace form
{

std::string Event::text() const
{
    // In the order of their enumerators.
    constexpr std::string_view endings[] = {"_Click",  "_SelectedRows", "_KeyDown",
                                            "_Change", "_Resize",       "FE_EVENT_MESSAGE"};
    return std::string(control).append(endings[static_cast<std::size_t>(what)]);
}

}  // namespace form
