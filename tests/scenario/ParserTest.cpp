#include "tests/scenario/Scenario.h"

#include <gtest/gtest.h>

namespace quorvel::scenario {
namespace {

/// The line and reason of a scenario that cannot be read.
std::string errorOf(std::string_view text) {
    try {
        parseScenario(text);
    } catch (const SyntaxError& error) {
        return std::to_string(error.line()) + ": " + error.what();
    }
    return "no error";
}

template <typename Kind>
Kind expectationOf(std::string_view line) {
    const Scenario scenario = parseScenario(line);
    return std::get<Kind>(std::get<ExpectationStep>(scenario.steps.at(0)).expectation);
}

template <typename Kind>
Kind actionOf(std::string_view line) {
    const Scenario scenario = parseScenario(line);
    return std::get<Kind>(std::get<ActionStep>(scenario.steps.at(0)).action);
}

template <typename Kind>
Kind settingOf(std::string_view line) {
    const Scenario scenario = parseScenario(line);
    return std::get<Kind>(std::get<SettingStep>(scenario.steps.at(0)).setting);
}

DialogStep dialogOf(std::string_view line) {
    const Scenario scenario = parseScenario("start\n  " + std::string(line));
    return std::get<DialogStep>(std::get<ActionStep>(scenario.steps.at(0)).followUps.at(0).content);
}

TEST(Parser, EmptyLinesAndCommentsAreNoSteps) {
    EXPECT_TRUE(parseScenario("").steps.empty());
    EXPECT_TRUE(parseScenario("\n   \n# a comment\n\t# another\r\n").steps.empty());
}

TEST(Parser, StepsKeepTheirLineAndTheirWords) {
    const Scenario scenario = parseScenario("\xEF\xBB\xBF# first\r\n\nstart  # now\n");
    ASSERT_EQ(scenario.steps.size(), 1U);
    EXPECT_EQ(lineOf(scenario.steps[0]), 3);
    EXPECT_EQ(std::get<ActionStep>(scenario.steps[0]).source, "start  # now");
}

TEST(Parser, EscapesStandForTheirBytes) {
    EXPECT_EQ(actionOf<TypeText>(R"(type "a\"b\\c\nd\xE9\x00e")").text,
              std::string("a\"b\\c\r\nd\xE9\0e", 11));
}

TEST(Parser, TextIsReadAsUtf8AndKeptInTheCodePage) {
    EXPECT_EQ(actionOf<TypeText>("type \"M\xC3\xBCller\"").text, "M\xFCller");
}

TEST(Parser, ANumberSignInsideATextIsNoComment) {
    EXPECT_EQ(expectationOf<ControlText>("expect lblSN text \"#\"").text, "#");
}

TEST(Parser, SettingsAreRead) {
    EXPECT_EQ(settingOf<SetScreen>("screen 640x480").size, (ScreenSize{640, 480}));
    EXPECT_EQ(settingOf<StorePassword>("password \"secret\"").password, "secret");
    EXPECT_EQ(settingOf<StorePassword>("password empty").password, "");
    const auto file = settingOf<PlaceFile>(R"(file "Grades\\a.qrv" from "class.qrv")");
    EXPECT_EQ(file.path, "Grades\\a.qrv");
    EXPECT_EQ(file.fixture, "class.qrv");
    EXPECT_EQ(settingOf<SetPrinter>("printer none").state, PrinterState::None);
    EXPECT_EQ(settingOf<SetPrinter>("printer fails").state, PrinterState::Fails);
    EXPECT_EQ(settingOf<SetPrinter>("printer ready").state, PrinterState::Ready);
    EXPECT_TRUE(settingOf<SetDisk>("disk full").full);
    EXPECT_FALSE(settingOf<SetDisk>("disk ready").full);
    EXPECT_EQ(settingOf<OpenElsewhere>(R"(locked "a.qrv")").path, "a.qrv");
    EXPECT_EQ(settingOf<OpenElsewhere>(R"(locked "a.qrv")").sharing, FileSharing::Nothing);
    EXPECT_EQ(settingOf<OpenElsewhere>(R"(held "a.qrv")").sharing, FileSharing::Contents);
    EXPECT_EQ(settingOf<CloseElsewhere>(R"(released "a.qrv")").path, "a.qrv");
}

TEST(Parser, ActionsAreRead) {
    EXPECT_EQ(actionOf<ChooseMenu>("menu mnuPFile(1)").entry, "mnuPFile(1)");
    EXPECT_EQ(actionOf<ClickPoint>("click 149.4 20").x, 149.4);
    EXPECT_EQ(actionOf<ClickPoint>("click 149.4 20").y, 20.0);
    EXPECT_EQ(actionOf<ClickControl>("click lblStudent").control, "lblStudent");
    EXPECT_EQ(actionOf<PressKey>("key Enter").key, "Enter");
    EXPECT_EQ(actionOf<PressKey>("key e").key, "e");
    EXPECT_EQ(actionOf<MoveScrollBar>("scroll hsbA 3").position, 3);
    actionOf<Start>("start");
    actionOf<CloseWindow>("close");
    actionOf<EndSession>("session ends");
}

TEST(Parser, DialogsAndTheirAnswersAreRead) {
    const DialogStep prompt = dialogOf(R"(prompt "T" "Q\nR" default "D" -> "A")");
    EXPECT_EQ(prompt.expected.kind, DialogKind::Prompt);
    EXPECT_EQ(prompt.expected.title, "T");
    EXPECT_EQ(prompt.expected.text, "Q\r\nR");
    EXPECT_EQ(prompt.expected.defaultAnswer, "D");
    EXPECT_EQ(prompt.reply.text, "A");
    EXPECT_TRUE(dialogOf(R"(prompt "T" "Q" default "" -> cancel)").reply.cancelled);

    const DialogStep message = dialogOf(R"(message "T" "M" icon critical buttons yes-no -> no)");
    EXPECT_EQ(message.expected.kind, DialogKind::Message);
    EXPECT_EQ(message.expected.icon, Icon::Critical);
    EXPECT_EQ(message.expected.buttons, Buttons::YesNo);
    EXPECT_EQ(message.reply.button, Answer::No);

    EXPECT_EQ(dialogOf(R"(open "T" -> "a.qrv")").expected.kind, DialogKind::OpenFile);
    EXPECT_TRUE(dialogOf(R"(save "T" -> cancel)").reply.cancelled);
    const DialogStep font = dialogOf(R"(font -> "Arial" 9.75)");
    EXPECT_EQ(font.reply.font, (PrintFont{"Arial", 9.75F}));
    EXPECT_EQ(dialogOf(R"(password "T" -> "x")").expected.kind, DialogKind::Password);
}

TEST(Parser, DialogsAndIndentedExpectationsHangUnderTheirAction) {
    const Scenario scenario = parseScenario(
        "menu mnuNew\n  open \"T\" -> cancel\n\texpect dirty no\nexpect students 0\n");
    ASSERT_EQ(scenario.steps.size(), 2U);
    const auto& action = std::get<ActionStep>(scenario.steps[0]);
    ASSERT_EQ(action.followUps.size(), 2U);
    EXPECT_EQ(action.followUps[1].line, 3);
}

TEST(Parser, SheetExpectationsAreRead) {
    EXPECT_EQ(expectationOf<Count>("expect students 2").count, 2);
    EXPECT_EQ(expectationOf<Count>("expect assignments 3").of, Count::Of::Assignments);
    EXPECT_EQ(expectationOf<Count>("expect pages 2").of, Count::Of::PrintedPages);
    EXPECT_EQ(expectationOf<StudentIs>(R"(expect student 1 "Doe, Jane" "Jane")").alias, "Jane");
    EXPECT_EQ(expectationOf<AssignmentIs>(R"(expect assignment 1 "Quiz" 20)").value, 20);
    EXPECT_EQ(expectationOf<CellIs>("expect cell 1 2 empty").kind, CellIs::Kind::Empty);
    EXPECT_EQ(expectationOf<CellIs>("expect cell 1 2 number 0").value, "0");
    EXPECT_EQ(expectationOf<CellIs>("expect cell 1 2 text \"17\"").kind, CellIs::Kind::Text);
    const auto figures =
        expectationOf<FiguresAre>("expect figures 1 earned 17 percentage 66.6 rank 1");
    EXPECT_EQ(figures.earned, 17);
    EXPECT_FALSE(figures.possible);
    EXPECT_EQ(figures.percentage, "66.6");
    EXPECT_EQ(expectationOf<AverageIs>("expect average 85.5 C").average, "85.5");
    EXPECT_FALSE(expectationOf<AverageIs>("expect average none").average);
    EXPECT_TRUE(expectationOf<DirtyIs>("expect dirty yes").dirty);
    EXPECT_EQ(expectationOf<CurrentPathIs>("expect path \"\"").path, "");
}

TEST(Parser, WindowExpectationsAreRead) {
    EXPECT_EQ(expectationOf<WindowCaption>("expect window caption \"a\"").caption, "a");
    expectationOf<WindowEnded>("expect window ended");
    EXPECT_EQ(expectationOf<ControlColour>("expect lblStudent colour C0C0C0").colour, 0xC0C0C0U);
    EXPECT_EQ(expectationOf<BarRange>("expect hsbA range 1 7").maximum, 7);
    EXPECT_EQ(expectationOf<BarPosition>("expect hsbA position 3").position, 3);
    EXPECT_FALSE(expectationOf<ControlVisible>("expect mnuPFile(1) hidden").visible);
    EXPECT_EQ(expectationOf<ControlAt>("expect txtEnter at 150 14").top, 14);
    expectationOf<ControlFocused>("expect txtEnter focused");
    EXPECT_EQ(expectationOf<SelectedText>("expect txtEnter selected \"17\"").text, "17");
    EXPECT_EQ(expectationOf<ScoreGlyphs>("expect glyphs 1 2 \"  7\"").column, 2);
    EXPECT_EQ(expectationOf<RowGlyphSet>("expect glyphset 1 double").set, GlyphSet::Double);
    EXPECT_EQ(expectationOf<HeadingGlyphs>("expect heading 1 \"  1\"").glyphs, "  1");
    EXPECT_EQ(expectationOf<ResultGlyphs>("expect results 1 earned \"  17\" grade \"C\"").grade,
              "C");
    EXPECT_EQ(expectationOf<FootGlyphs>("expect foot percent 1 \" 85\"").line,
              FootGlyphs::Line::Percent);
    EXPECT_EQ(expectationOf<FootClassGlyphs>("expect foot class \" 85.5\" \"C\"").grade, "C");
}

TEST(Parser, ExpectationsOfFilesAndPrintsAreRead) {
    EXPECT_EQ(expectationOf<FolderExists>("expect folder \"Grades\"").path, "Grades");
    EXPECT_EQ(expectationOf<FileRecordCount>("expect file \"a\" records 19").records, 19);
    expectationOf<FileMissing>("expect file \"a\" missing");
    const auto bytes = expectationOf<FileBytes>("expect file \"a\" bytes 128 \"02 00ff\"");
    EXPECT_EQ(bytes.offset, 128U);
    EXPECT_EQ(bytes.bytes.size(), 3U);
    EXPECT_EQ(bytes.bytes[2], std::byte{0xFF});
    EXPECT_EQ(expectationOf<FileRecord>("expect file \"a\" record 1 integer 94").value,
              TaggedValue(std::int16_t{94}));
    EXPECT_EQ(expectationOf<FileRecord>("expect file \"a\" record 1 text \"x\"").value,
              TaggedValue(std::string("x")));
    const auto tagged = expectationOf<FileRecord>("expect file \"a\" record 2 tagged single 9.75");
    EXPECT_EQ(tagged.kind, FileRecord::Kind::Tagged);
    EXPECT_EQ(tagged.value, TaggedValue(9.75F));
    EXPECT_EQ(expectationOf<FileRecord>("expect file \"a\" record 1 tagged empty").value,
              TaggedValue());

    EXPECT_EQ(expectationOf<PrintedFile>("expect printed \"a.txt\"").file, "a.txt");
    EXPECT_EQ(expectationOf<PrintedLine>("expect printed page 1 line 3 \"x\"").line, 3);
    EXPECT_EQ(expectationOf<PrintedContains>("expect printed contains \"x\"").text, "x");
    EXPECT_EQ(expectationOf<PrintedFont>("expect printed font \"Courier New\" 9.75").size, 9.75F);
    expectationOf<PrintedLandscape>("expect printed landscape");
    expectationOf<PrintedNothing>("expect printed none");
    EXPECT_EQ(expectationOf<Copied>(R"(expect copied "a" "A:\\a")").to, "A:\\a");
    expectationOf<CopiedNothing>("expect copied none");
    EXPECT_EQ(expectationOf<Launched>(R"(expect launched " notepad *\\x.txt")").commandLine,
              " notepad *\\x.txt");
}

TEST(Parser, WhatIsNoStepIsAnErrorWithItsLine) {
    EXPECT_EQ(errorOf("start\n\nclikc 1 2"), "3: clikc is no step");
    EXPECT_EQ(errorOf("expect studnets 2"), "1: studnets is nothing that can be expected");
    EXPECT_EQ(errorOf("expect txtS colr C0C0C0"), "1: \"selected\" is expected instead of colr");
    EXPECT_EQ(errorOf("start now"), "1: \"now\" is too much");
    EXPECT_EQ(errorOf("expect students"), "1: the line ends too early");
    EXPECT_EQ(errorOf("expect students two"), "1: a whole number is expected instead of two");
    EXPECT_EQ(errorOf("type 17"), "1: a text in quotation marks is expected instead of 17");
    EXPECT_EQ(errorOf("type \"17"), "1: a text without its closing quotation mark");
    EXPECT_EQ(errorOf("type \"\\q\""), "1: \\q is no escape");
    EXPECT_EQ(errorOf("type \"\\x4\""), "1: \\x needs two hexadecimal digits");
    EXPECT_EQ(errorOf("key F5"), "1: F5 is no key: Enter, Escape, Tab or a letter");
    EXPECT_EQ(errorOf("screen big"), "1: a size such as 640x480 is expected instead of big");
    EXPECT_EQ(errorOf("expect lblSN colour C0C0"),
              "1: a colour of six hexadecimal digits is expected instead of C0C0");
}

TEST(Parser, DialogsStandIndentedUnderAnActionOnly) {
    EXPECT_EQ(errorOf("  open \"T\" -> cancel"), "1: the dialog does not follow an action");
    EXPECT_EQ(errorOf("start\nopen \"T\" -> cancel"), "2: open is no step");
    EXPECT_EQ(errorOf("start\nexpect dirty no\n  open \"T\" -> cancel"),
              "3: the dialog does not follow an action");
    EXPECT_EQ(errorOf("start\n  close"),
              "2: close is no dialog; only dialogs and expectations are indented");
}

TEST(Parser, AnAnswerNeedsItsButton) {
    EXPECT_EQ(errorOf("start\n message \"T\" \"M\" icon none buttons ok -> yes"),
              "2: the message has no such button");
    EXPECT_EQ(errorOf("start\n message \"T\" \"M\" icon blue buttons ok -> ok"),
              "2: blue is unexpected here");
}

TEST(Parser, AScenarioSaysWhatItsFirstStartNeeds) {
    EXPECT_EQ(parseScenario("start").screen(), defaultScreen);
    EXPECT_EQ(parseScenario("screen 640x480\nstart").screen(), (ScreenSize{640, 480}));
    EXPECT_EQ(parseScenario("printer none\nstart\nprinter ready").printer(), PrinterState::None);
    EXPECT_EQ(parseScenario("start\nprinter none").printer(), PrinterState::Ready);
}

}  // namespace
}  // namespace quorvel::scenario
