#pragma once

#include "fake/FormFixture.h"
#include "fake/QueuedPropertyList.h"
#include "femap/com/ComApplication.h"
#include "selection/InputSelection.h"
#include "selection/OutputSelection.h"
#include "selection/ValueRefresh.h"

#include <algorithm>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace comtest
{

using femap::com::Reading;

/// The form over the FEMAP that runs, with answers for every dialog. COM must be initialised.
class ComForm : public fake::FormFixture
{
public:
    explicit ComForm(Reading reading)
        : running_(std::make_unique<femap::com::ComConnector>(
              &dialogs, std::make_shared<femap::com::RetryPolicy>(), reading)),
          dialog{*running_, list}
    {
        context.application = running_->attach();
    }
    /// Over another FEMAP, which the caller attaches.
    explicit ComForm(femap::Connector& connector) : dialog{connector, list} {}

private:
    std::unique_ptr<femap::Connector> running_;

public:
    fake::QueuedPropertyList list;
    selection::frmPropertyList dialog;

    /// "Select..." under Input. The engineer picks these entities and chooses these fields in each
    /// list; no fields: all that there are.
    void selectInputs(const std::string& kind, const std::vector<int>& ids,
                      const std::vector<std::string>& fields = {}, int lists = 1)
    {
        pick(ids);
        choose(fields, lists);
        form.InputSelection.Text = kind;
        selection::InputsButton_Click(context, dialog);
        list.forgetAnswers();
    }
    /// The same under Output with the first vectors of each list.
    void selectOutputs(const std::string& kind, const std::vector<int>& ids, std::size_t vectors,
                       int lists = 1)
    {
        pick(ids);
        for (int i = 0; i < lists; ++i)
            list.answer([vectors](selection::frmPropertyList& shown) {
                auto& items = shown.lstProperties.items;
                for (std::size_t each = 0; each < std::min(vectors, items.size()); ++each)
                    items[each].selected = true;
                shown.cmdAdd_Click();
            });
        form.OutputSelection.Text = kind;
        selection::OutputsButton_Click(context, dialog);
        list.forgetAnswers();
        dialogs.answers.clear();
    }
    void refreshAll()
    {
        selection::RefreshInputs_Click(context);
        selection::RefreshOutputs_Click(context);
    }
    /// Puts the rows of both grids into an order that is the same every time, but none.
    void shuffleRows()
    {
        for (form::ParameterGrid* const grid : {&form.InputsList, &form.OutputsList}) {
            std::vector<std::string> all = rows(*grid);
            std::mt19937 random(2);
            std::shuffle(all.begin(), all.end(), random);
            fake::fill(*grid, all);
        }
    }

    /// The rows of both grids and the log.
    std::vector<std::string> outcome()
    {
        std::vector<std::string> result = rows(form.InputsList);
        for (const auto& more : {rows(form.OutputsList), log()})
            result.insert(result.end(), more.begin(), more.end());
        return result;
    }

private:
    void choose(const std::vector<std::string>& fields, int lists)
    {
        for (int i = 0; i < lists; ++i) {
            if (fields.empty())
                list.chooseAll();
            else
                list.choose(fields);
        }
    }
};

}  // namespace comtest
