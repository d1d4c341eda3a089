#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <vector>

namespace tally::mutants {

/// One test of the build.
struct Test
{
    QString program; ///< its path
    QString name;
    bool ofRules; ///< else of a screen, which is slower by far
};

/// All tests of a build that run within minutes and without a display. Throws std::runtime_error where the
/// build does not tell them.
std::vector<Test> TestsOf(const QString& buildFolder);

/// What a command says; throws std::runtime_error when it cannot be run or fails.
QString OutputOf(const QString& program, const QStringList& arguments, const QByteArray& input = {});

/// Whether these tests of one program pass, stopping at the first that does not. A program that hangs does
/// not pass.
bool Pass(const QString& program, const QStringList& names, const QProcessEnvironment& environment);

} // namespace tally::mutants
