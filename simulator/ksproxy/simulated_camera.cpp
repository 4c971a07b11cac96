#include "ksproxy/simulated_camera.h"

#include <algorithm>
#include <utility>

#include "base/errors.h"
#include "ksproxy/camera_registry.h"
#include "model/camera.h"

namespace kolmsim {
namespace {

void Shape(std::span<const SimFault> faults, std::vector<std::uint8_t>& answer, std::size_t* answeredBytes,
           HRESULT* result) {
    for (const SimFault& fault : faults) {
        if (fault.action == SimFaultAction::patchAnswer) {
            if (answer.size() >= 4 && fault.offset <= answer.size() - 4) {
                Record(answer).SetWord(fault.offset, fault.word);
            }
            *result = fault.code;
        } else if (fault.action == SimFaultAction::shortAnswer) {
            *answeredBytes = std::min<std::size_t>(fault.offset, answer.size());
            *result = fault.code;
        } else if (fault.action == SimFaultAction::answer) {
            *result = fault.code;
        }
    }
}

}  // namespace

HRESULT HResultOf(Status status) {
    return kolmfluxor::HResultFromWin32(static_cast<LONG>(status));
}

SimulatedCamera::SimulatedCamera(std::unique_ptr<StateStorage> storage, kolmfluxor::UniqueHandle handle,
                                 Variant variant)
    : m_storage(std::move(storage)), m_handle(std::move(handle)), m_variant(variant) {}

bool SimulatedCamera::ReachesCamera(std::span<const SimFault> faults, HRESULT* code) {
    for (const SimFault& fault : faults) {
        switch (fault.action) {
        case SimFaultAction::delay:
            ::Sleep(fault.milliseconds);
            break;
        case SimFaultAction::unplug:
            Plug(false);
            break;
        case SimFaultAction::fail:
            *code = fault.code;
            return false;
        case SimFaultAction::shortAnswer:
        case SimFaultAction::patchAnswer:
        case SimFaultAction::answer:
            break;
        }
    }
    *code = HResultOf(Status::deviceNotConnected);
    return IsPlugged();
}

Status SimulatedCamera::AnswerInPlace(std::span<const SimFault> faults, std::span<std::uint8_t> record,
                                      const char** objection) {
    const StateStorage::Access access(*m_storage);
    Camera camera(access.State());
    const bool inItsPlace = std::ranges::find(faults, SimFaultAction::answer, &SimFault::action) != faults.end();
    const ContractCheck check = inItsPlace ? CheckHeader(record) : camera.Check(record);
    *objection = check.objection;
    return check.status != Status::ok || inItsPlace ? check.status : camera.Answer(record);
}

HRESULT SimulatedCamera::Perform(std::span<std::uint8_t> record, const char* objection, ULONG* returned) {
    const std::shared_ptr<LogEntry> entry = MakeLogEntry(record);
    std::vector<SimFault> faults;
    if (objection == nullptr) {
        const std::scoped_lock lock(m_lock);
        faults = m_faults.Strike(entry->request.id, entry->request.flags);
    }

    HRESULT result = HResultOf(Status::invalidParameter);
    std::size_t answeredBytes = 0;
    if (objection == nullptr && ReachesCamera(faults, &result)) {
        std::vector<std::uint8_t> answer = entry->sent;
        const Status status = AnswerInPlace(faults, answer, &objection);
        result = HResultOf(status);
        if (status == Status::ok) {
            answeredBytes = answer.size();
            Shape(faults, answer, &answeredBytes, &result);
            std::copy_n(answer.begin(), answeredBytes, entry->answered.begin());
            std::copy_n(answer.begin(), answeredBytes, record.begin());
        }
    }
    FinishLogEntry(*entry, result, objection);
    if (returned != nullptr) {
        *returned = static_cast<ULONG>(answeredBytes);
    }

    SimWriteHook hook = nullptr;
    void* context = nullptr;
    {
        const std::scoped_lock lock(m_lock);
        m_log.Add(entry);
        if (SUCCEEDED(result) && entry->request.flags == static_cast<std::uint32_t>(Direction::set)) {
            hook = m_hook;
            context = m_hookContext;
        }
    }
    if (hook != nullptr) {
        hook(context, entry->request);
    }
    return result;
}

std::size_t SimulatedCamera::RequestCount() {
    const std::scoped_lock lock(m_lock);
    return m_log.Count();
}

bool SimulatedCamera::Request(std::size_t index, SimRequest* request) {
    const std::scoped_lock lock(m_lock);
    const SimRequest* found = m_log.At(index);
    if (found == nullptr || request == nullptr) {
        return false;
    }
    *request = *found;
    return true;
}

void SimulatedCamera::ClearLog() {
    const std::scoped_lock lock(m_lock);
    m_log.Clear();
}

void SimulatedCamera::AddFault(const SimFault& fault) {
    const std::scoped_lock lock(m_lock);
    m_faults.Add(fault);
}

void SimulatedCamera::ClearFaults() {
    const std::scoped_lock lock(m_lock);
    m_faults.Clear();
}

bool SimulatedCamera::IsPlugged() {
    const std::scoped_lock lock(m_lock);
    return m_plugged;
}

void SimulatedCamera::Plug(bool plugged) {
    const std::scoped_lock lock(m_lock);
    m_plugged = plugged;
}

bool SimulatedCamera::GetFeatureWord(std::uint32_t driverId, std::uint32_t offset, std::uint32_t* word) {
    const StateStorage::Access access(*m_storage);
    const auto found = Camera(access.State()).PropertyWord(driverId, offset);
    if (found && word != nullptr) {
        *word = *found;
    }
    return found.has_value();
}

bool SimulatedCamera::SetFeatureWord(std::uint32_t driverId, std::uint32_t offset, std::uint32_t word) {
    const StateStorage::Access access(*m_storage);
    return Camera(access.State()).SetPropertyWord(driverId, offset, word);
}

bool SimulatedCamera::SetFeaturePresent(std::uint32_t driverId, bool present) {
    const StateStorage::Access access(*m_storage);
    return Camera(access.State()).SetPropertyPresent(driverId, present);
}

bool SimulatedCamera::PeekRegister(std::uint32_t address, std::uint32_t* word) {
    const StateStorage::Access access(*m_storage);
    const auto found = Camera(access.State()).Register(address);
    if (found && word != nullptr) {
        *word = *found;
    }
    return found.has_value();
}

bool SimulatedCamera::PokeRegister(std::uint32_t address, std::uint32_t word) {
    const StateStorage::Access access(*m_storage);
    return Camera(access.State()).SetRegister(address, word);
}

std::size_t SimulatedCamera::ReadLutMemory(std::uint32_t lut, std::uint8_t* bytes, std::size_t count) {
    const StateStorage::Access access(*m_storage);
    const std::span<const std::uint8_t> memory = Camera(access.State()).Lut(lut);
    std::copy_n(memory.begin(), std::min(count, memory.size()), bytes);
    return memory.size();
}

void SimulatedCamera::SetWriteHook(SimWriteHook hook, void* context) {
    const std::scoped_lock lock(m_lock);
    m_hook = hook;
    m_hookContext = context;
}

void SimulatedCamera::Reset() {
    const StateStorage::Access access(*m_storage);
    ResetState(access.State(), m_variant);
}

void SimulatedCamera::Close() {
    CloseCamera(this);
}

}  // namespace kolmsim
