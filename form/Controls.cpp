#include "form/Controls.h"

#include <algorithm>

namespace form
{

void ComboBox::setListIndex(int index)
{
    const bool inList = index >= 0 && index < static_cast<int>(List.size());
    ListIndex = inList ? index : -1;
    Text.clear();
    if (!inList)
        return;
    Text = List[static_cast<std::size_t>(index)];
    if (Click)
        Click();
}

void ComboBox::enterText(const std::string& text)
{
    const auto found = std::find(List.begin(), List.end(), text);
    ListIndex = found == List.end() ? -1 : static_cast<int>(found - List.begin());
    Text = text;
    if (Click)
        Click();
}

}  // namespace form
