#include "kolmview/newest_sample.h"

namespace kolmview {

void NewestSample::Put(std::span<const std::uint8_t> sample, Time when) {
    const std::scoped_lock lock(m_lock);
    m_sample.assign(sample.begin(), sample.end());
    m_fresh = true;
    ++m_count;
    m_rate.Note(when);
}

bool NewestSample::Take(std::vector<std::uint8_t>* sample) {
    const std::scoped_lock lock(m_lock);
    if (!m_fresh) {
        return false;
    }
    m_sample.swap(*sample);
    m_fresh = false;
    return true;
}

NewestSample::Figures NewestSample::FiguresAt(Time now) const {
    const std::scoped_lock lock(m_lock);
    return {m_count, m_rate.Rate(now), m_rate.Silence(now)};
}

}  // namespace kolmview
