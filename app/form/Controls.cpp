#include "app/form/Controls.h"

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
    const auto place = std::find(List.begin(), List.end(), text);
    ListIndex = place == List.end() ? -1 : static_cast<int>(place - List.begin());
    Text = text;
    if (Click)
        Click();
}

}  // namespace form
