#include "mutants/Terms.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

namespace tally::mutants {

namespace {

struct Token
{
    enum class Kind
    {
        Word,
        Literal, ///< a text, a quoted name or a number
        Placeholder,
        Sign
    };

    Kind kind;
    qsizetype begin;
    qsizetype end;
    QString text; ///< a word in capital letters, anything else as it stands
};

std::vector<Token> TokensOf(const QString& sql)
{
    static const QRegularExpression pattern(
        QStringLiteral(R"((?<word>[A-Za-z_]\w*(?:\.[A-Za-z_]\w*)*))"
                       R"(|(?<literal>'(?:[^']|'')*'|"(?:[^"]|"")*"|`[^`]*`|\[[^\]]*\]|\d+(?:\.\d*)?))"
                       R"(|(?<placeholder>\?\d*|[:@$]\w+))"
                       R"(|(?<blank>\s+|--[^\n]*|/\*.*?\*/))"
                       R"(|(?<sign>\|\||<=|>=|<>|!=|==|.))"),
        QRegularExpression::DotMatchesEverythingOption);
    std::vector<Token> tokens;
    auto matches = pattern.globalMatch(sql);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const auto add = [&](Token::Kind kind, const QString& text) {
            tokens.push_back({kind, match.capturedStart(), match.capturedEnd(), text});
        };
        if (match.hasCaptured(QStringLiteral("word")))
            add(Token::Kind::Word, match.captured().toUpper());
        else if (match.hasCaptured(QStringLiteral("literal")))
            add(Token::Kind::Literal, match.captured());
        else if (match.hasCaptured(QStringLiteral("placeholder")))
            add(Token::Kind::Placeholder, match.captured());
        else if (match.hasCaptured(QStringLiteral("sign")))
            add(Token::Kind::Sign, match.captured());
    }
    return tokens;
}

/// Gives each placeholder the number that the engine would give it, so that none moves when another goes.
QString Numbered(const QString& sql)
{
    QString numbered;
    qsizetype copied = 0;
    int highest = 0;
    QSet<QString> names;
    for (const Token& token : TokensOf(sql)) {
        if (token.kind != Token::Kind::Placeholder)
            continue;
        if (token.text == QLatin1String("?")) {
            numbered += sql.mid(copied, token.end - copied) + QString::number(++highest);
            copied = token.end;
        } else if (token.text.startsWith(QLatin1Char('?'))) {
            highest = std::max(highest, token.text.mid(1).toInt());
        } else if (!names.contains(token.text)) {
            names.insert(token.text);
            ++highest;
        }
    }
    return numbered + sql.mid(copied);
}

/// Tokens from `begin` up to and without `end`.
struct Range
{
    std::size_t begin;
    std::size_t end;

    bool IsEmpty() const { return begin >= end; }
};

class Mutation
{
public:
    explicit Mutation(const QString& sql) : sql_(Numbered(sql)), tokens_(TokensOf(sql_)) {}

    std::vector<Mutant> All()
    {
        static const QSet<QString> ofRows{QStringLiteral("SELECT"),  QStringLiteral("INSERT"),
                                          QStringLiteral("UPDATE"),  QStringLiteral("DELETE"),
                                          QStringLiteral("REPLACE"), QStringLiteral("WITH")};
        if (tokens_.empty() || !ofRows.contains(tokens_.front().text))
            return {};
        Statement({0, tokens_.size()});
        for (std::size_t token = 0; token + 1 < tokens_.size(); ++token) {
            if (Is(token, "DISTINCT"))
                AddWithout({token, token + 1}, {});
            else if (Is(token, "COLLATE"))
                AddWithout({token, token + 2}, {});
        }
        return std::move(mutants_);
    }

private:
    bool Is(std::size_t token, const char* text) const
    {
        return token < tokens_.size() && tokens_[token].text == QLatin1String(text) &&
               tokens_[token].kind != Token::Kind::Literal;
    }

    bool IsWord(std::size_t token, const QSet<QString>& words) const
    {
        return tokens_[token].kind == Token::Kind::Word && words.contains(tokens_[token].text);
    }

    /// The token behind this one or, where it opens a bracket or a CASE, behind what closes that.
    std::size_t Behind(std::size_t token) const
    {
        int depth = 0;
        for (; token < tokens_.size(); ++token) {
            if (Is(token, "(") || Is(token, "CASE"))
                ++depth;
            else if (Is(token, ")") || Is(token, "END"))
                --depth;
            if (depth <= 0)
                return token + 1;
        }
        return token;
    }

    QString TextOf(Range range) const
    {
        if (range.IsEmpty())
            return {};
        const qsizetype begin = tokens_[range.begin].begin;
        return sql_.mid(begin, tokens_[range.end - 1].end - begin);
    }

    QStringList PlaceholdersIn(Range range) const
    {
        QStringList placeholders;
        for (std::size_t token = range.begin; token < range.end; ++token)
            if (tokens_[token].kind == Token::Kind::Placeholder &&
                !placeholders.contains(tokens_[token].text))
                placeholders.append(tokens_[token].text);
        return placeholders;
    }

    /// A condition that is always true and takes all values of the range.
    QString True(Range range) const
    {
        QStringList terms;
        for (const QString& placeholder : PlaceholdersIn(range))
            terms.append(QStringLiteral("%1 IS %1").arg(placeholder));
        return terms.isEmpty() ? QStringLiteral("1")
                               : QLatin1Char('(') + terms.join(QLatin1String(" AND ")) + QLatin1Char(')');
    }

    void Add(const QString& change, Range range, const QString& replacement)
    {
        const QString shape = ShapeOf(change);
        const int number = ++times_[shape];
        const qsizetype begin = tokens_[range.begin].begin;
        const qsizetype end = tokens_[range.end - 1].end;
        mutants_.push_back({number == 1 ? shape : QStringLiteral("%1 (%2)").arg(shape).arg(number),
                            sql_.left(begin) + replacement + sql_.mid(end)});
    }

    void AddWithout(Range range, const QString& replacement)
    {
        Add(QStringLiteral("without ") + TextOf(range), range, replacement);
    }

    /// The parts between these separators. The AND of a BETWEEN separates nothing.
    std::vector<Range> Split(Range range, const char* separator) const
    {
        std::vector<Range> parts;
        bool between = false;
        std::size_t begin = range.begin;
        for (std::size_t token = range.begin; token < range.end; token = Behind(token)) {
            if (Is(token, "BETWEEN"))
                between = true;
            else if (between && Is(token, "AND"))
                between = false;
            else if (Is(token, separator)) {
                parts.push_back({begin, token});
                begin = token + 1;
            }
        }
        parts.push_back({begin, range.end});
        return parts;
    }

    void Statement(Range range)
    {
        static const QSet<QString> borders{
            QStringLiteral("SELECT"),    QStringLiteral("FROM"),   QStringLiteral("JOIN"),
            QStringLiteral("INNER"),     QStringLiteral("LEFT"),   QStringLiteral("CROSS"),
            QStringLiteral("NATURAL"),   QStringLiteral("WHERE"),  QStringLiteral("ON"),
            QStringLiteral("HAVING"),    QStringLiteral("SET"),    QStringLiteral("GROUP"),
            QStringLiteral("ORDER"),     QStringLiteral("LIMIT"),  QStringLiteral("UNION"),
            QStringLiteral("INTERSECT"), QStringLiteral("EXCEPT"), QStringLiteral("VALUES")};
        std::size_t begin = range.begin;
        while (begin < range.end) {
            std::size_t end = Behind(begin);
            while (end < range.end && !IsWord(end, borders) && !(Is(begin, "ON") && Is(end, ",")))
                end = Behind(end);
            Clause({begin, end});
            begin = end;
        }
    }

    void Clause(Range clause)
    {
        const std::size_t word = clause.begin;
        if (Is(word, "WHERE") || Is(word, "ON") || Is(word, "HAVING")) {
            const Range condition{word + 1, clause.end};
            Add(QStringLiteral("without ") + TextOf(clause), condition, True(condition));
            Operands(condition);
        } else if (Is(word, "SET")) {
            for (const Range& item : Split({word + 1, clause.end}, ","))
                Assignment(item);
        } else if ((Is(word, "GROUP") || Is(word, "ORDER")) && Is(word + 1, "BY")) {
            Items(clause);
        }
        SubSelects(clause);
    }

    /// Each operand of an OR as if it never held, each operand of an AND as if it always did.
    void Operands(Range condition)
    {
        const std::vector<Range> choices = Split(condition, "OR");
        for (const Range& choice : choices) {
            if (choices.size() > 1)
                AddWithout(choice, QLatin1String("NOT ") + True(choice));
            const std::vector<Range> terms = Split(choice, "AND");
            for (const Range& term : terms) {
                if (terms.size() > 1)
                    AddWithout(term, True(term));
                Term(term);
            }
        }
    }

    void Term(Range term)
    {
        while (Is(term.begin, "NOT"))
            ++term.begin;
        if (Is(term.begin, "(") && Behind(term.begin) == term.end && !Is(term.begin + 1, "SELECT"))
            Operands({term.begin + 1, term.end - 1});
        for (std::size_t token = term.begin; token < term.end; token = Behind(token))
            if (Is(token, "BETWEEN") && !Is(token - 1, "NOT"))
                Bounds(term, token);
    }

    void Bounds(Range term, std::size_t between)
    {
        std::size_t conjunction = between;
        while (!Is(conjunction, "AND"))
            conjunction = Behind(conjunction);
        const Range low{between + 1, conjunction};
        const Range high{conjunction + 1, term.end};
        const QString value = TextOf({term.begin, between});
        Add(QStringLiteral("without the lower bound of ") + TextOf(term), term,
            QStringLiteral("(%1 <= %2 AND %3)").arg(value, TextOf(high), True(low)));
        Add(QStringLiteral("without the upper bound of ") + TextOf(term), term,
            QStringLiteral("(%1 >= %2 AND %3)").arg(value, TextOf(low), True(high)));
    }

    /// The column keeps the value that it has.
    void Assignment(Range item)
    {
        const QString column = TextOf({item.begin, item.begin + 1});
        Add(QStringLiteral("without SET ") + TextOf(item), item,
            QStringLiteral("%1 = CASE WHEN %2 THEN %1 END").arg(column, True(item)));
    }

    /// Nothing takes the place of an item, so that one which holds a placeholder must stay.
    void Items(Range clause)
    {
        const QString words = TextOf({clause.begin, clause.begin + 2}) + QLatin1Char(' ');
        const std::vector<Range> items = Split({clause.begin + 2, clause.end}, ",");
        for (const Range& item : items) {
            if (PlaceholdersIn(item).isEmpty()) {
                Range gone = item;
                if (items.size() == 1)
                    gone = clause;
                else if (item.begin == items.front().begin)
                    ++gone.end;
                else
                    --gone.begin;
                Add(QStringLiteral("without ") + words + TextOf(item), gone, {});
            }
            if (Is(clause.begin, "ORDER"))
                Turn(item, words);
        }
    }

    void Turn(Range item, const QString& words)
    {
        const QString change = words + TextOf(item) + QLatin1String(" turned");
        const bool falling = Is(item.end - 1, "DESC");
        const Range value{item.begin, falling || Is(item.end - 1, "ASC") ? item.end - 1 : item.end};
        Add(change, item, TextOf(value) + QLatin1String(falling ? " ASC" : " DESC"));
    }

    void SubSelects(Range range)
    {
        for (std::size_t token = range.begin; token + 1 < range.end; ++token) {
            if (!Is(token, "(") || !Is(token + 1, "SELECT"))
                continue;
            const std::size_t behind = Behind(token);
            Statement({token + 1, behind - 1});
            token = behind - 1;
        }
    }

    QString sql_;
    std::vector<Token> tokens_;
    std::vector<Mutant> mutants_;
    QHash<QString, int> times_;
};

} // namespace

QString ShapeOf(const QString& sql)
{
    static const QRegularExpression list(QStringLiteral(R"(\b(IN|VALUES) ?\( ?(?:NULL|\?(?: ?, ?\?)*) ?\))"),
                                         QRegularExpression::CaseInsensitiveOption);
    QString shape;
    qsizetype copied = 0;
    for (const Token& token : TokensOf(sql)) {
        if (token.kind != Token::Kind::Placeholder || !token.text.startsWith(QLatin1Char('?')))
            continue;
        shape += sql.mid(copied, token.begin - copied) + QLatin1Char('?');
        copied = token.end;
    }
    shape += sql.mid(copied);
    return shape.simplified().replace(list, QStringLiteral("\\1 (?, ...)"));
}

std::vector<Mutant> MutantsOf(const QString& sql)
{
    return Mutation(sql).All();
}

} // namespace tally::mutants
