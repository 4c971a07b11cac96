#pragma once
/// @file  What features the simulated camera has, and in which state it leaves the factory.

#include <cstdint>
#include <span>

namespace kolmsim {

/// The two cameras that can be simulated.
enum class Variant : std::uint32_t { mono = 0, color = 1 };

/// One feature as the camera starts with it.
struct FeatureRow {
    std::uint32_t id;  ///< driver property id
    const char* name;  ///< for logs and test messages
    std::uint32_t value;
    std::uint32_t min;
    std::uint32_t max;
    std::uint32_t caps;  ///< OR of the mode bits that it supports
    std::uint32_t mode;  ///< one mode bit

    /// How far the value moves with each look at it in an automatic mode; 0 for a feature whose value stays.
    std::uint32_t step = 0;

    bool colorOnly = false;

    /// The word at Min tells something else than the lowest value: a SET may carry 0.
    bool minIsNoLimit = false;

    /// The lowest value that a SET may carry, where the word at Min is `minWord`.
    [[nodiscard]] constexpr std::uint32_t Lowest(std::uint32_t minWord) const { return minIsNoLimit ? 0 : minWord; }
};

/// All features, by driver id.
[[nodiscard]] std::span<const FeatureRow> FeatureTable();

/// The feature with this driver id, or null.
[[nodiscard]] const FeatureRow* FindFeature(std::uint32_t id);

/// Properties that are no features for the driver's callers but have the same record and behave alike.
[[nodiscard]] std::span<const FeatureRow> FeatureLikeTable();

/// The feature or feature-like property with this driver id, or null.
[[nodiscard]] const FeatureRow* FindAdjustable(std::uint32_t id);

/// Whether a camera of this variant has the feature.
[[nodiscard]] constexpr bool HasFeature(const FeatureRow& row, Variant variant) {
    return !row.colorOnly || variant == Variant::color;
}

/// Content of a feature record's uninterpreted word number `n` (1 to 3): never zero, different for each feature and
/// word, so that a record that comes back with another word shows.
[[nodiscard]] constexpr std::uint32_t ExtraWord(std::uint32_t id, std::uint32_t n) {
    return 0xE0000000U | (n << 16) | (0x0100U + id);
}

/// Size of one lookup table in bytes, what the LUT feature (id 31) reports in place of a minimum.
inline constexpr std::uint32_t kLutBytes = 8192;  // 4096 values of 2 bytes

/// How many lookup tables the camera holds.
inline constexpr std::uint32_t kLutCount = 4;

/// Bits of each lookup-table value, what the feature with driver id 63 reports.
inline constexpr std::uint32_t kLutBitsPerValue = 12;

}  // namespace kolmsim
