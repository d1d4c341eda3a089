#include "support/ExpectedPrompts.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

namespace tally::test {
namespace {

const QString Text = QStringLiteral("Replace ?");
const QString Title = QStringLiteral("Source Path");
const QString Folder = QStringLiteral("/school");
const QString Filter = QStringLiteral("Database Files (*.mdb)");
const QString Chosen = QStringLiteral("/school/old.mdb");

TEST(ExpectedPromptsTest, GiveTheAnswersInTheirOrder)
{
    ExpectedPrompts prompts;
    prompts.ExpectQuestionOrCancel(Text, Prompts::Reply::Yes);
    prompts.ExpectQuestionOrCancel(Text, Prompts::Reply::No);
    prompts.ExpectQuestionOrCancel(Text, Prompts::Reply::Cancel);
    prompts.ExpectConfirmation(Text, true);
    prompts.ExpectConfirmation(Text, false);
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::Open, Title, Folder, Filter}, Chosen);
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::SaveAs, Title, Folder, Filter}, {});
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::Folder, Title, Folder, {}}, Folder);
    EXPECT_EQ(Prompts::AskOrCancel(Text), Prompts::Reply::Yes);
    EXPECT_EQ(Prompts::AskOrCancel(Text), Prompts::Reply::No);
    EXPECT_EQ(Prompts::AskOrCancel(Text), Prompts::Reply::Cancel);
    EXPECT_TRUE(Prompts::Confirm(Text));
    EXPECT_FALSE(Prompts::Confirm(Text));
    EXPECT_EQ(Prompts::ChooseFile(Title, Folder, Filter), Chosen);
    EXPECT_EQ(Prompts::ChooseFileToSave(Title, Folder, Filter), QString());
    EXPECT_EQ(Prompts::ChooseFolder(Title, Folder), Folder);
}

TEST(ExpectedPromptsTest, FailOnADialogThatWasNotExpectedAndCancelIt)
{
    const ExpectedPrompts prompts;
    QString chosen = Chosen;
    EXPECT_NONFATAL_FAILURE(chosen = Prompts::ChooseFile(Title, Folder, Filter),
                            "was not expected: Source Path");
    EXPECT_EQ(chosen, QString());
}

TEST(ExpectedPromptsTest, FailOnABoxWhereADialogWasExpectedAndTheOtherWayRound)
{
    ExpectedPrompts prompts;
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::Open, Title, Folder, Filter}, Chosen);
    EXPECT_NONFATAL_FAILURE(Prompts::Information(Text), "was not expected: Replace ?");
    EXPECT_EQ(Prompts::ChooseFile(Title, Folder, Filter), Chosen);
    prompts.ExpectInformation(Text);
    EXPECT_NONFATAL_FAILURE(Prompts::ChooseFile(Title, Folder, Filter), "was not expected: Source Path");
    Prompts::Information(Text);
}

TEST(ExpectedPromptsTest, FailOnAnotherKindOfBoxOrDialog)
{
    ExpectedPrompts prompts;
    prompts.ExpectQuestion(Text, true);
    EXPECT_NONFATAL_FAILURE(Prompts::Confirm(Text), "Replace ?");
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::Open, Title, Folder, Filter}, Chosen);
    EXPECT_NONFATAL_FAILURE(Prompts::ChooseFileToSave(Title, Folder, Filter), "wanted.kind");
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::Open, Title, Folder, Filter}, Chosen);
    EXPECT_NONFATAL_FAILURE(Prompts::ChooseFile(Title, QStringLiteral("/"), Filter), "wanted.folder");
}

TEST(ExpectedPromptsTest, FailOnADialogThatDidNotCome)
{
    ExpectedPrompts prompts;
    prompts.ExpectFileDialog({Prompts::FileDialog::Kind::Open, Title, Folder, Filter}, Chosen);
    EXPECT_NONFATAL_FAILURE(prompts.Verify(), "a file dialog did not come: Source Path");
}

TEST(ExpectedPromptsTest, WhereOnlyBoxesAreAnsweredADialogIsCancelled)
{
    Prompts::AnswerWith([](Prompts::Kind, const QString&) { return true; });
    EXPECT_EQ(Prompts::ChooseFile(Title, Folder, Filter), QString());
    Prompts::AnswerWith({});
}

} // namespace
} // namespace tally::test
