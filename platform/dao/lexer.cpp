#include "platform/dao/lexer.h"

#include "platform/dao/dateliteral.h"
#include "platform/runtime/error.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dao
{

namespace
{

/// Behind these words a number is more than a value.
constexpr std::array countedWords = {"ORDER"_L1, "TOP"_L1, "CREATE"_L1, "ALTER"_L1};

bool startsName(QChar character)
{
    return character.isLetter() || character == u'_';
}

bool continuesName(QChar character)
{
    return character.isLetterOrNumber() || character == u'_' || character.isMark();
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool isControl(QChar character)
{
    return character.unicode() < 0x20;
}

bool isWord(QStringView text, QLatin1StringView word)
{
    return text.compare(word, Qt::CaseInsensitive) == 0;
}

class Lexer
{
public:
    explicit Lexer(QStringView text) : text_(text)
    {
        tokens_.list.reserve(24);
        tokens_.key.reserve(text.size() + 16);
    }

    Tokens run()
    {
        for (skipBlanks(); at_ < text_.size(); skipBlanks()) {
            next();
        }
        add(TokenKind::End, at_);
        if (grouped_) {
            extendKeyByLiterals();
        }
        return std::move(tokens_);
    }

private:
    [[noreturn]] void fail(const QString &reason) const { runtime::raise(3075, {reason, text_.toString()}); }

    QChar peek(qsizetype ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : QChar(); }

    void skipBlanks()
    {
        while (at_ < text_.size() && text_[at_].isSpace()) {
            ++at_;
        }
    }

    void next()
    {
        const QChar character = peek();
        if (startsName(character)) {
            name();
        } else if (isDigit(character) || (character == u'.' && isDigit(peek(1)))) {
            number();
        } else if (character == u'\'' || character == u'"') {
            quoted(character);
        } else if (character == u'#') {
            date();
        } else if (character == u'[' || character == u'`') {
            bracketed(character == u'[' ? u']' : u'`');
        } else {
            symbol();
        }
    }

    void add(TokenKind kind, qsizetype from, int literal = -1)
    {
        tokens_.list.push_back({kind, text_.mid(from, at_ - from), literal});
    }

    void name()
    {
        const qsizetype from = at_;
        while (continuesName(peek())) {
            ++at_;
        }
        add(TokenKind::Name, from);
        const QStringView word = tokens_.list.back().text;
        positional_ = positional_ || std::any_of(countedWords.begin(), countedWords.end(),
                                                 [word](QLatin1StringView counted) { return isWord(word, counted); });
        grouped_ = grouped_ || isWord(word, "GROUP"_L1);
        extendKey(word);
    }

    void bracketed(QChar end)
    {
        const qsizetype from = ++at_;
        while (at_ < text_.size() && text_[at_] != end && !isControl(text_[at_])) {
            ++at_;
        }
        if (peek() != end || at_ == from) {
            fail(u"Erro de sintaxe (nome entre colchetes)"_s);
        }
        add(TokenKind::Bracketed, from);
        tokens_.key += u'[';
        extendKey(tokens_.list.back().text);
        ++at_;
    }

    void symbol()
    {
        static constexpr QStringView single = u"()*,.;=<>+-/\\^&!";
        const qsizetype from = at_;
        if (!single.contains(peek())) {
            fail(u"Erro de sintaxe"_s);
        }
        const QChar first = text_[at_++];
        const bool pair = (first == u'<' && (peek() == u'=' || peek() == u'>')) || (first == u'>' && peek() == u'=');
        at_ += pair ? 1 : 0;
        add(TokenKind::Symbol, from);
        extendKey(tokens_.list.back().text);
    }

    void skipDigits()
    {
        while (isDigit(peek())) {
            ++at_;
        }
    }

    /// A point or an exponent makes the number a Double.
    bool skipFraction()
    {
        const qsizetype from = at_;
        if (peek() == u'.') {
            ++at_;
            skipDigits();
        }
        const qsizetype sign = peek(1) == u'+' || peek(1) == u'-' ? 2 : 1;
        if ((peek() == u'e' || peek() == u'E') && isDigit(peek(sign))) {
            at_ += sign;
            skipDigits();
        }
        return at_ > from;
    }

    void number()
    {
        const qsizetype from = at_;
        skipDigits();
        const bool fraction = skipFraction();
        if (startsName(peek())) {
            fail(u"Erro de sintaxe (operador faltando)"_s);
        }
        const QStringView digits = text_.mid(from, at_ - from);
        bool fits = false;
        const qint32 whole = digits.toInt(&fits);
        if (fits && !fraction) {
            literal(from, whole, u'i');
        } else {
            literal(from, digits.toDouble(), u'n');
        }
    }

    void quoted(QChar mark)
    {
        const qsizetype from = at_++;
        QString value;
        for (;;) {
            const qsizetype end = text_.indexOf(mark, at_);
            if (end < 0) {
                fail(u"Erro de sintaxe na cadeia de caracteres"_s);
            }
            value += text_.mid(at_, end - at_);
            at_ = end + 1;
            if (peek() != mark) {
                break;
            }
            value += mark;
            ++at_;
        }
        literal(from, value, u't');
    }

    void date()
    {
        const qsizetype from = at_;
        const qsizetype end = text_.indexOf(u'#', from + 1);
        const auto moment = end < 0 ? std::nullopt : parseDateLiteral(text_.mid(from + 1, end - from - 1));
        if (!moment) {
            fail(u"Erro de sintaxe na data"_s);
        }
        at_ = end + 1;
        literal(from, *moment, u'd');
    }

    /// Behind ORDER BY and TOP a number says which column or how many rows, in a definition how long a text may be, so
    /// there it belongs to the statement's shape.
    void literal(qsizetype from, runtime::Value value, QChar kind)
    {
        add(TokenKind::Literal, from, static_cast<int>(tokens_.literals.size()));
        tokens_.literals.push_back(std::move(value));
        tokens_.key += QChar(1);
        tokens_.key += kind;
        if (positional_) {
            extendKey(tokens_.list.back().text);
        }
    }

    /// Whether an item is one of GROUP BY depends on the literals of both.
    void extendKeyByLiterals()
    {
        for (const Token &token : tokens_.list) {
            if (token.kind == TokenKind::Literal) {
                extendKey(token.text);
            }
        }
    }

    void extendKey(QStringView piece)
    {
        tokens_.key += piece;
        tokens_.key += u' ';
    }

    QStringView text_;
    qsizetype at_ = 0;
    bool positional_ = false;
    bool grouped_ = false;
    Tokens tokens_;
};

} // namespace

Tokens tokenize(QStringView statement)
{
    return Lexer(statement).run();
}

} // namespace dao
