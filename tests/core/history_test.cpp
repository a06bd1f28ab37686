#include "core/history.h"

#include <gtest/gtest.h>

namespace kelvro {
namespace {

TEST(History, LeadsBackAndForthThroughNamedSteps) {
    History<int> history(1);
    EXPECT_FALSE(history.undo());
    history.edit(2, "R1");
    history.edit(3, "Switch");
    EXPECT_EQ(history.undoName(), "Switch");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.present(), 2);
    EXPECT_EQ(history.undoName(), "R1");
    EXPECT_EQ(history.redoName(), "Switch");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.present(), 1);
    EXPECT_TRUE(history.redo() && history.redo());
    EXPECT_EQ(history.present(), 3);
    EXPECT_FALSE(history.redo());
}

TEST(History, JoinsKeystrokesOfOneFieldUntilSomethingComesBetween) {
    History<int> history(0);
    history.edit(4, "R1", "R1");
    history.edit(47, "R1", "R1");
    history.edit(470, "R1", "R1");
    history.edit(471, "R2", "R2");
    history.edit(472, "R1", "R1");
    history.undo();
    history.undo();
    EXPECT_EQ(history.present(), 470);
    history.undo();
    EXPECT_EQ(history.present(), 0);
    // After an undo typing starts a step of its own.
    history.redo();
    history.edit(4700, "R1", "R1");
    history.undo();
    EXPECT_EQ(history.present(), 470);
    // So it does after leaving the field.
    history.edit(5, "R1", "R1");
    history.close();
    history.edit(50, "R1", "R1");
    history.undo();
    EXPECT_EQ(history.present(), 5);
}

TEST(History, TakesNoStepWhereNothingChanged) {
    History<int> history(7);
    history.edit(7, "R1");
    EXPECT_FALSE(history.canUndo());
    history.edit(8, "drag", "drag");
    history.edit(7, "drag", "drag");  // dragged back to where it began
    EXPECT_FALSE(history.canUndo());
    history.edit(9, "R1");
    history.undo();
    history.edit(7, "R2");
    EXPECT_TRUE(history.canRedo()) << "an edit without effect must not lose what was undone";
}

TEST(History, PassesOverLooksAtOtherPages) {
    History<int> history(0);
    history.pass(10);
    EXPECT_FALSE(history.canUndo()) << "there is nothing but a look";
    EXPECT_FALSE(history.undo());
    history.edit(11, "R1");
    history.pass(20);
    history.pass(30);
    history.edit(31, "R2");
    history.pass(40);
    EXPECT_EQ(history.undoName(), "R2");
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.present(), 30) << "the page on which R2 was edited";
    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.present(), 10);
    history.pass(50);
    EXPECT_EQ(history.redoName(), "R1") << "looking elsewhere loses nothing";
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(history.present(), 11);
    EXPECT_TRUE(history.redo());
    EXPECT_EQ(history.present(), 31);
    EXPECT_FALSE(history.canRedo());
}

TEST(History, ForgetsTheOldestStepsBeyondItsLength) {
    History<int> history(0, 3);
    for (int i = 1; i <= 10; ++i) history.edit(i, "step");
    int steps = 0;
    while (history.undo()) ++steps;
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(history.present(), 7);
}

}  // namespace
}  // namespace kelvro
