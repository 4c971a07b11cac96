#include "ksproxy/request_log.h"

#include <utility>

#include "model/record.h"

namespace kolmsim {

const SimRequest* RequestLog::At(std::size_t index) const {
    return index < m_entries.size() ? &m_entries[index]->request : nullptr;
}

void RequestLog::Add(std::shared_ptr<const LogEntry> entry) {
    m_entries.push_back(std::move(entry));
    if (m_entries.size() > kSimLogLimit) {
        m_entries.pop_front();
    }
}

std::shared_ptr<LogEntry> MakeLogEntry(std::span<const std::uint8_t> sent) {
    auto entry = std::make_shared<LogEntry>();
    entry->sent.assign(sent.begin(), sent.end());
    entry->answered = entry->sent;

    const bool hasHeader = sent.size() >= kHeaderBytes;
    const Record record(entry->sent);
    entry->request.id = hasHeader ? record.Id() : kSimAnyId;
    entry->request.flags = hasHeader ? record.Flags() : 0;
    return entry;
}

void FinishLogEntry(LogEntry& entry, HRESULT result, const char* objection) {
    entry.request.sizeBytes = static_cast<std::uint32_t>(entry.sent.size());
    entry.request.result = result;
    entry.request.sent = entry.sent.empty() ? nullptr : entry.sent.data();
    entry.request.answered = entry.answered.empty() ? nullptr : entry.answered.data();
    entry.request.objection = objection;
}

}  // namespace kolmsim
