#pragma once

#include <QMap>
#include <QPair>
#include <QSet>
#include <QString>

#include <cstddef>
#include <vector>

namespace tally::mutants {

/// A place in a program from which a statement was prepared.
using Caller = QPair<QString, QString>; ///< the program's name and a hexadecimal address in it

/// One statement of the program, in all the texts that the tests have shown of it.
struct Statement
{
    QSet<QString> texts;
    QSet<Caller> callers;
    QSet<std::size_t> tests; ///< those that prepare it
    QSet<QString> places;    ///< file and line, from src/ on
};

/// The program's own statements, by their shape, from what the tests were seen to prepare. A test's own
/// statements are not among them: whose a statement is, is told by the nearest source file on the way to the
/// engine that is neither one of the store's doors nor a header, whose templates stand for who calls them.
class Statements
{
public:
    /// `sourceFolder` holds src/, `programFolder` the programs.
    Statements(const QString& sourceFolder, const QString& programFolder);

    /// Takes what one test recorded. Its statements are there once Resolve() was called.
    void Add(std::size_t test, const QByteArray& record);
    /// Looks the callers up in the programs. Throws std::runtime_error where that is not possible.
    void Resolve();

    const QMap<QString, Statement>& ByShape() const { return byShape_; }
    /// Whether any of them holds this piece of text.
    bool Hold(const QString& piece) const;

private:
    struct Sight
    {
        std::size_t test;
        QString program;
        QStringList addresses;
        QString text;
    };

    void LookUp(const QString& program, const QSet<QString>& addresses);
    /// Empty where the statement is not the program's own.
    Caller OwnCaller(const Sight& sight) const;

    QString sourceFolder_;
    QString programFolder_;
    std::vector<Sight> sights_;
    QMap<Caller, QString> places_;
    QMap<QString, Statement> byShape_;
};

} // namespace tally::mutants
