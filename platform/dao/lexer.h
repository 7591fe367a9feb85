#pragma once

#include "platform/runtime/value.h"

#include <QString>

#include <vector>

namespace dao
{

enum class TokenKind { Name, Bracketed, Literal, Symbol, End };

/// A piece of a statement. A literal stands for its place in `Tokens::literals`.
struct Token {
    TokenKind kind = TokenKind::End;
    QStringView text;
    int literal = -1;
};

/// A statement cut into its pieces. The literals are lifted out of the text, so that statements that differ in
/// their literals only share one `key`. The views look into the statement's text, which has to outlive them.
struct Tokens {
    std::vector<Token> list; ///< ends with a token of the kind End
    std::vector<runtime::Value> literals;
    QString key;
};

/// Cuts a statement of the program's dialect into tokens. Error 3075 for a text, name or date that does not end, for a
/// date that is none and for a character that no statement holds.
Tokens tokenize(QStringView statement);

} // namespace dao
