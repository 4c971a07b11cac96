#include "lut/lut_set.h"

#include <stdexcept>

#include "base/text_exception.h"

namespace kolmfluxor {
namespace {

constexpr const char* kTooLarge = "LUT number larger then size of LUT vector";

/// LUT n; an empty one for n equal to the count. @throws std::out_of_range  with `text`
template <class Value> const Lut<Value>& At(const std::vector<Lut<Value>>& luts, std::size_t n, const char* text) {
    static const Lut<Value> none;
    if (n > luts.size()) throw std::out_of_range(text);
    return n < luts.size() ? luts[n] : none;
}

}  // namespace

std::size_t CLutSet::GetLUTCount() const {
    if (!m_valid) throw CTextException("LUT not valid");
    switch (m_type) {
    case LutType::bits8:
        return m_luts8.size();
    case LutType::bits16:
        return m_luts16.size();
    }
    throw CTextException("unknown LUT type");
}

const Lut8Bit& CLutSet::Get8BitLUT(std::size_t n) const {
    if (m_type != LutType::bits8) throw CTextException("can not access 8 bit LUT type incompatible");
    return At(m_luts8, n, kTooLarge);
}

const Lut16Bit& CLutSet::Get16BitLUT(std::size_t n) const {
    if (m_type != LutType::bits16) throw CTextException("can not access 16 bit LUT type incompatible");
    return At(m_luts16, n, kTooLarge);
}

std::string CLutSet::GetLUTName(std::size_t n) const {
    switch (m_type) {
    case LutType::bits8:
        return At(m_luts8, n, kTooLarge).name;
    case LutType::bits16:
        return At(m_luts16, n, kTooLarge).name;
    }
    return {};
}

std::size_t CLutSet::GetLUTByteSize(std::size_t n) const {
    constexpr const char* tooLarge = "lUT number larger then lUT vector size";
    if (!m_valid) throw CTextException("LUTs not initialized");
    switch (m_type) {
    case LutType::bits8:
        return At(m_luts8, n, tooLarge).values.size();
    case LutType::bits16:
        return At(m_luts16, n, tooLarge).values.size() * sizeof(std::uint16_t);
    }
    throw CTextException("lUT not initialized");
}

}  // namespace kolmfluxor
