/// @file  The tokenizer of LUT files: each transition of its state machine, and what they add up to.

#include "lut/csv_tokenizer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/plain_lut_csv.h"

namespace kolmfluxor::test {
namespace {

using Tokens = std::vector<std::string>;

/// The tokens of a line as the machine finds them.
Tokens TokensOf(std::string line) {
    CsvLine found{};
    const std::size_t length = line.size();
    line += std::string(64, ',');  // may be looked at, and must not count
    CsvTokenize(line.data(), length, &found);
    EXPECT_EQ(line.substr(length), std::string(64, ',')) << "beyond its end a line is left alone";
    Tokens tokens;
    for (std::size_t i = 0; i < found.count; ++i) {
        const std::size_t end = i + 1 < found.count ? found.begins[i + 1] - 1U - found.unused[i] : found.end;
        tokens.push_back(line.substr(found.begins[i], end - found.begins[i]));
    }
    return tokens;
}

/// A way into each state, and the open delimiters there.
struct StateRow {
    CsvState state;
    const char* name;
    std::string path;
    std::string open;  ///< the stack, innermost last
};
const StateRow kStates[] = {
    {CsvState::open, "open", "x", ""},
    {CsvState::afterComma, "afterComma", "x,", ","},
    {CsvState::afterSemicolon, "afterSemicolon", "x;", ";"},
    {CsvState::doubleQuoted, "doubleQuoted", "x\"", "\""},
    {CsvState::singleQuoted, "singleQuoted", "x'", "'"},
    {CsvState::commaDoubleQuoted, "commaDoubleQuoted", "x,\"", ",\""},
    {CsvState::semiDoubleQuoted, "semiDoubleQuoted", "x;\"", ";\""},
    {CsvState::singleDoubleQuoted, "singleDoubleQuoted", "x'\"", "'\""},
};

constexpr CsvClass kClasses[] = {CsvClass::other,       CsvClass::lineFeed, CsvClass::doubleQuote,
                                 CsvClass::singleQuote, CsvClass::comma,    CsvClass::semicolon};
constexpr char kCharacters[] = {'x', '\n', '"', '\'', ',', ';'};

CsvState StateAfter(const std::string& text) {
    CsvState state = CsvState::open;
    for (const char c : text)
        state = CsvNext(state, CsvClassOf(c)).next;
    return state;
}

/// The rules of the stack, for one character. @return  what becomes of the character
CsvAction Step(std::string& open, char c) {
    const bool none = open.empty();
    const char top = none ? '\0' : open.back();
    switch (c) {
    case '\n':
        return CsvAction::drop;
    case '"':
        top == '"' ? open.pop_back() : open.push_back('"');
        return CsvAction::drop;
    case '\'':
        if (none) {
            open.push_back('\'');
        } else if (top == '\'') {
            open.pop_back();
        }
        return CsvAction::drop;
    case ',':
    case ';':
        if (!none && top != c) return CsvAction::append;
        none ? open.push_back(c) : open.pop_back();
        return CsvAction::endToken;
    default:
        return CsvAction::append;
    }
}

TEST(LutCsvTokenizer, every_transition_follows_the_rules_of_the_stack) {
    ASSERT_EQ(std::size(kStates), kCsvStates);
    ASSERT_EQ(std::size(kClasses), kCsvClasses);
    for (const StateRow& from : kStates) {
        ASSERT_EQ(StateAfter(from.path), from.state) << from.name;
        for (std::size_t i = 0; i < kCsvClasses; ++i) {
            SCOPED_TRACE(std::string(from.name) + ", class " + std::to_string(i));
            ASSERT_EQ(CsvClassOf(kCharacters[i]), kClasses[i]);
            std::string open = from.open;
            const CsvAction action = Step(open, kCharacters[i]);

            const CsvStep step = CsvNext(from.state, kClasses[i]);

            EXPECT_EQ(step.action, action);
            bool found = false;
            for (const StateRow& to : kStates) {
                if (to.open != open) continue;
                EXPECT_EQ(step.next, to.state) << "expected " << to.name;
                found = true;
            }
            EXPECT_TRUE(found) << "no state for the delimiters " << open;
        }
    }
}

TEST(LutCsvTokenizer, every_transition_gives_the_tokens_of_the_plain_rules) {
    const std::string continuations[] = {"", "y", "y,z", "y;z", "y\"", "y'", "y,\"z", "'y\"z,"};
    for (const StateRow& from : kStates) {
        for (const char c : kCharacters) {
            for (const std::string& rest : continuations) {
                const std::string line = from.path + c + rest;
                EXPECT_EQ(TokensOf(line), PlainTokens(line)) << line;
            }
        }
    }
}

TEST(LutCsvTokenizer, last_token_counts_unless_a_quote_is_open) {
    for (const StateRow& row : kStates) {
        const bool inQuotes = !row.open.empty() && (row.open.back() == '"' || row.open.back() == '\'');
        EXPECT_EQ(CsvKeepsLastToken(row.state), !inQuotes) << row.name;
    }
}

TEST(LutCsvTokenizer, every_other_character_is_part_of_a_token) {
    for (int i = 0; i < 256; ++i) {
        const char c = static_cast<char>(i);
        if (std::string_view("\n\"',;").find(c) != std::string_view::npos) continue;
        EXPECT_EQ(CsvClassOf(c), CsvClass::other) << i;
        EXPECT_EQ(TokensOf({c}), Tokens{std::string(1, c)}) << i;
    }
}

struct LineCase {
    std::string line;
    Tokens tokens;
};
const LineCase kLines[] = {
    {"", {""}},
    {"a", {"a"}},
    {"a,b,c,d", {"a", "b", "c", "d"}},
    {"a;b;c", {"a", "b", "c"}},
    {",", {"", ""}},
    {",,", {"", "", ""}},
    {"\"a\";\"b\"", {"a", "b"}},
    {"'a','b'", {"a", "b"}},  // the second pair is dropped: a separator is open
    {"'a,b'", {"a,b"}},
    {"\"a,b;c\",d", {"a,b;c", "d"}},
    {"\"it's\"", {"its"}},
    {"'say \"a,b\"'", {"say a,b"}},
    {"'a\"b'c\"d'", {"abcd"}},  // inside ' a " opens anew, and closes before the ' does
    {"\"a\"b\"c\"", {"abc"}},
    {"\"\"a\"\"", {"a"}},
    {"\"a\" \"b\",c", {"a b", "c"}},
    {"a\"b", {}},
    {"a,\"b", {"a"}},
    {"a,b'", {"a", "b"}},              // no quote is open: a separator is
    {"a,'b,c'", {"a", "b"}},           // after one separator ' does not quote, and the last one opens
    {"a,b,'c,d'", {"a", "b", "c,d"}},  // after two it does
    {"a\nb", {"ab"}},
};

TEST(LutCsvTokenizer, lines_fall_into_tokens) {
    for (const LineCase& row : kLines) {
        EXPECT_EQ(TokensOf(row.line), row.tokens) << row.line;
        EXPECT_EQ(PlainTokens(row.line), row.tokens) << row.line;
    }
}

TEST(LutCsvTokenizer, a_single_quote_does_not_quote_while_anything_else_is_open) {
    EXPECT_EQ(TokensOf("'a,b'"), (Tokens{"a,b"})) << "nothing is open: it quotes";
    EXPECT_EQ(TokensOf("x,'a,b"), (Tokens{"x", "a", "b"})) << "a comma is open";
    EXPECT_EQ(TokensOf("x;'a;b"), (Tokens{"x", "a", "b"})) << "a semicolon is open";
    EXPECT_EQ(TokensOf("\"a'b\",c"), (Tokens{"ab", "c"})) << "a double quote is open";
}

TEST(LutCsvTokenizer, separators_work_in_alternation) {
    EXPECT_EQ(TokensOf("a,b;c"), (Tokens{"a", "b;c"}));
    EXPECT_EQ(TokensOf("a;b,c"), (Tokens{"a", "b,c"}));
    EXPECT_EQ(TokensOf("a,b,c;d"), (Tokens{"a", "b", "c", "d"})) << "the second comma closed the first";
    EXPECT_EQ(TokensOf("a,b;c,d;e"), (Tokens{"a", "b;c", "d", "e"}));
}

TEST(LutCsvTokenizer, longest_line_of_separators_alone) {
    const std::string line = std::string(255, ',') + '\0';

    const Tokens tokens = TokensOf(line);

    EXPECT_EQ(tokens.size(), 256u);
    EXPECT_EQ(tokens, PlainTokens(line));
    EXPECT_EQ(tokens.back(), std::string(1, '\0'));
}

}  // namespace
}  // namespace kolmfluxor::test
