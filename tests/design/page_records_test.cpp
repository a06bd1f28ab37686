// What every row of the table of pages has to bring along; a new page is held to it as well.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "design/cycle.h"
#include "design/pages.h"
#include "design/part_ref.h"

namespace kelvro {
namespace {

class EveryPage : public testing::TestWithParam<int> {
  protected:
    const Page& page_ = PageOf(GetParam());
};

TEST_P(EveryPage, HasItsTextsAndItsDesign) {
    EXPECT_FALSE(std::string_view(page_.key).empty());
    EXPECT_FALSE(std::string_view(page_.caption).empty());
    EXPECT_TRUE(page_.design);
    EXPECT_EQ(page_.menuItem.empty(), page_.menuGroup == MenuGroup::None);
    EXPECT_EQ(page_.menuItem.empty(), page_.menuText.empty());
    const CircuitHint& hint = page_.hint;
    for (const std::string_view text :
         {std::string_view(page_.suggestion.character), std::string_view(hint.use),
          std::string_view(hint.limits), std::string_view(hint.parasitics),
          std::string_view(hint.values)}) {
        EXPECT_GT(text.size(), 10U);
        EXPECT_FALSE(text.ends_with(' '));
    }
    EXPECT_FALSE(std::string_view(page_.suggestion.character).ends_with('.')) << "more follows it";
}

TEST_P(EveryPage, ShowsWhatItPromises) {
    EXPECT_TRUE(page_.transfer || !page_.plottable) << "a plot of an ideal network";
    EXPECT_TRUE(page_.networks || !page_.exportable) << "nothing to export";
    EXPECT_TRUE(page_.transfer || page_.goal.residual || !page_.goal.moved) << "no gain to raise";
    EXPECT_TRUE(page_.mirrored || page_.swapBox.empty());
    if (!page_.goal.moved) return;
    // What the optimizer moves is what the page designs.
    Design design;
    EnterPage(design, page_.number);
    std::vector<Slot> kept;
    for (const PartRef& part : PartsOf(design)) kept.push_back(part.slot);
    for (const Slot slot : page_.goal.moved(design)) {
        EXPECT_NE(std::ranges::find(kept, slot), kept.end()) << static_cast<int>(slot);
    }
}

/// Parts that vary, are rounded or taken are found by their names.
TEST_P(EveryPage, KnowsWhereItKeepsThePartsOfItsNetworks) {
    Design design;
    EnterPage(design, page_.number);
    for (const Network& network : page_.drawnNetworks(design)) {
        for (const ListedPart& part : ListOf(network)) {
            const auto kept = PartOf(page_, network, part.name, false);
            ASSERT_TRUE(kept) << part.name;
            EXPECT_TRUE(kept->slot != Slot::None || kept->input) << part.name;
        }
    }
}

TEST_P(EveryPage, TakesFromFieldsThatExist) {
    for (const OutputField& field : page_.outputs) {
        if (!field.takenFrom) continue;
        const Page& other = PageOf(field.takenFrom->page);
        EXPECT_EQ(other.number, field.takenFrom->page);
        EXPECT_NE(std::ranges::find(other.outputs, field.takenFrom->slot, &OutputField::slot),
                  other.outputs.end())
            << field.object;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, EveryPage, testing::Range(1, PageCount() + 1));

TEST(PagesTest, ShareNoNames) {
    std::set<std::string_view> names;
    const auto isNew = [&](std::string_view name) {
        EXPECT_TRUE(name.empty() || names.insert(name).second) << name;
    };
    for (const Page& page : Pages()) {
        isNew(page.key);
        isNew(page.caption);
        isNew(page.menuItem);
        isNew(page.swapBox);
        isNew(page.table);
        for (const InputField& field : page.inputs) isNew(field.object);
        for (const OutputField& field : page.outputs) isNew(field.object);
        for (const ActionField& field : page.actions) isNew(field.object);
        for (const SwitchField& field : page.switches) {
            isNew(field.object);
            isNew(field.weightObject);
        }
    }
}

}  // namespace
}  // namespace kelvro
