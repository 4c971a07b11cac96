#pragma once
/// @file  How a line of a LUT file falls into tokens: a state machine.
///
/// Compatibility: separators work in alternation, a `'` does not quote while one is open, and an empty line is a
/// token. These are this module's own rules, kept as they stand because files rely on them. A stack of open delimiters
/// decides: a separator opens when nothing is open, and the same separator closes it again, each time ending a token; a
/// quote opens and closes, and is never part of a token. Only eight contents of that stack can come about, so the
/// machine has eight states and needs no stack.

#include <array>
#include <cstddef>
#include <cstdint>

namespace kolmfluxor {

/// The open delimiters, the innermost last in the name.
enum class CsvState : std::uint8_t {
    open,                ///< none
    afterComma,          ///< ,
    afterSemicolon,      ///< ;
    doubleQuoted,        ///< "
    singleQuoted,        ///< '
    commaDoubleQuoted,   ///< , then "
    semiDoubleQuoted,    ///< ; then "
    singleDoubleQuoted,  ///< ' then "
};
inline constexpr std::size_t kCsvStates = 8;

/// What a character is to the machine.
enum class CsvClass : std::uint8_t { other, lineFeed, doubleQuote, singleQuote, comma, semicolon };
inline constexpr std::size_t kCsvClasses = 6;

/// What becomes of a character.
enum class CsvAction : std::uint8_t {
    append,    ///< it belongs to the current token
    drop,      ///< it belongs to no token
    endToken,  ///< it ends the current token and belongs to none
};

struct CsvStep {
    CsvState next;
    CsvAction action;
};

[[nodiscard]] constexpr CsvClass CsvClassOf(char c) noexcept {
    switch (c) {
    case '\n':
        return CsvClass::lineFeed;
    case '"':
        return CsvClass::doubleQuote;
    case '\'':
        return CsvClass::singleQuote;
    case ',':
        return CsvClass::comma;
    case ';':
        return CsvClass::semicolon;
    default:
        return CsvClass::other;
    }
}

namespace csv_steps {
using enum CsvState;
inline constexpr auto kAppend = CsvAction::append;
inline constexpr auto kDrop = CsvAction::drop;
inline constexpr auto kEnd = CsvAction::endToken;
// clang-format off
inline constexpr CsvStep kTable[kCsvStates][kCsvClasses] = {
    //                     other                          line feed                    double quote                  single quote                 comma                          semicolon
    /* open            */ {{open, kAppend},               {open, kDrop},               {doubleQuoted, kDrop},        {singleQuoted, kDrop},       {afterComma, kEnd},            {afterSemicolon, kEnd}},
    /* afterComma      */ {{afterComma, kAppend},         {afterComma, kDrop},         {commaDoubleQuoted, kDrop},   {afterComma, kDrop},         {open, kEnd},                  {afterComma, kAppend}},
    /* afterSemicolon  */ {{afterSemicolon, kAppend},     {afterSemicolon, kDrop},     {semiDoubleQuoted, kDrop},    {afterSemicolon, kDrop},     {afterSemicolon, kAppend},     {open, kEnd}},
    /* doubleQuoted    */ {{doubleQuoted, kAppend},       {doubleQuoted, kDrop},       {open, kDrop},                {doubleQuoted, kDrop},       {doubleQuoted, kAppend},       {doubleQuoted, kAppend}},
    /* singleQuoted    */ {{singleQuoted, kAppend},       {singleQuoted, kDrop},       {singleDoubleQuoted, kDrop},  {open, kDrop},               {singleQuoted, kAppend},       {singleQuoted, kAppend}},
    /* commaDouble…    */ {{commaDoubleQuoted, kAppend},  {commaDoubleQuoted, kDrop},  {afterComma, kDrop},          {commaDoubleQuoted, kDrop},  {commaDoubleQuoted, kAppend},  {commaDoubleQuoted, kAppend}},
    /* semiDouble…     */ {{semiDoubleQuoted, kAppend},   {semiDoubleQuoted, kDrop},   {afterSemicolon, kDrop},      {semiDoubleQuoted, kDrop},   {semiDoubleQuoted, kAppend},   {semiDoubleQuoted, kAppend}},
    /* singleDouble…   */ {{singleDoubleQuoted, kAppend}, {singleDoubleQuoted, kDrop}, {singleQuoted, kDrop},        {singleDoubleQuoted, kDrop}, {singleDoubleQuoted, kAppend}, {singleDoubleQuoted, kAppend}},
};
// clang-format on
}  // namespace csv_steps

/// One step of the machine.
[[nodiscard]] constexpr CsvStep CsvNext(CsvState state, CsvClass character) noexcept {
    return csv_steps::kTable[static_cast<std::size_t>(state)][static_cast<std::size_t>(character)];
}

/// Whether the last token counts when a line ends in this state: not inside quotes.
[[nodiscard]] constexpr bool CsvKeepsLastToken(CsvState state) noexcept {
    return state == CsvState::open || state == CsvState::afterComma || state == CsvState::afterSemicolon;
}

/// Where the tokens of a line lie after `CsvTokenize`.
struct CsvLine {
    static constexpr std::size_t kMostCharacters = 255;  ///< of a line, without its end
    using Places = std::array<std::uint8_t, kMostCharacters + 1>;

    Places begins;  ///< of each token, from the start of the line
    Places unused;  ///< characters from the end of each token to the next one, less the separator; 0 for the last
    std::size_t count = 0;  ///< of tokens
    std::size_t end = 0;    ///< one behind the last token
};

/// Finds the tokens of a line. Where characters that belong to no token stand inside one, closes it up over them.
///
/// @param text    the line, its NUL included if it has one; changed; 64 more characters can be read
/// @param length  at most 255 characters, and the NUL
void CsvTokenize(char* text, std::size_t length, CsvLine* line) noexcept;

}  // namespace kolmfluxor
