#include "ksproxy/fault_list.h"

#include <algorithm>

namespace kolmsim {

std::vector<SimFault> FaultList::Strike(std::uint32_t id, std::uint32_t flags) {
    std::vector<SimFault> due;
    for (Waiting& waiting : m_faults) {
        const SimFault& fault = waiting.fault;
        const bool matches = (fault.id == kSimAnyId || fault.id == id) && (fault.flags == 0 || fault.flags == flags);
        if (!matches) {
            continue;
        }
        if (fault.nth == 0 || ++waiting.seen == fault.nth) {
            due.push_back(fault);
        }
    }
    std::erase_if(m_faults, [](const Waiting& each) { return each.fault.nth != 0 && each.seen >= each.fault.nth; });
    return due;
}

}  // namespace kolmsim
