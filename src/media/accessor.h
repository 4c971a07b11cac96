#pragma once
/// @file  What an accessor of a media type says when it cannot answer. No Windows header: this also builds natively.

#include <array>
#include <cstddef>

namespace kolmfluxor {

/// A text that can be the argument of a template.
template <std::size_t N> struct FixedText {
    consteval FixedText(const char (&literal)[N]) {  // NOLINT(google-explicit-constructor): a literal becomes one
        for (std::size_t i = 0; i < N; ++i)
            text[i] = literal[i];
    }
    static constexpr std::size_t kLength = N - 1;  ///< without the NUL
    char text[N]{};
};

/// The texts put one after the other, with a NUL behind them.
template <FixedText... Parts>
inline constexpr auto kJoinedText = [] {
    std::array<char, (Parts.kLength + ...) + 1> joined{};
    std::size_t at = 0;
    const auto append = [&](const auto& part) {
        for (std::size_t i = 0; i < part.kLength; ++i)
            joined[at++] = part.text[i];
    };
    (append(Parts), ...);
    return joined;
}();

/// The texts of one accessor; its getter and its setter share them.
struct Accessor {
    const char* notInitialized;
    const char* nullPointer;
};

/// The texts of the accessor `Name` of the class `Class`.
template <FixedText Class, FixedText Name, FixedText NullPointer = ": Null Pointer">
inline constexpr Accessor kAccessor = {kJoinedText<Class, "::", Name, " not initialized">.data(),
                                       kJoinedText<Class, "::", Name, NullPointer>.data()};

}  // namespace kolmfluxor
