#include "ksproxy/camera_registry.h"

#include <cwchar>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

namespace kolmsim {
namespace {

/// Never destroyed: other modules may still close cameras while the process ends.
struct Registry {
    std::mutex lock;
    std::map<HANDLE, std::shared_ptr<SimulatedCamera>> cameras;
};

Registry& TheRegistry() {
    // NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one list a process, behind its lock
    static Registry& registry = *new Registry;
    return registry;
}

std::optional<Variant> VariantOf(const wchar_t* name) {
    if (name != nullptr && std::wcscmp(name, L"mono") == 0) {
        return Variant::mono;
    }
    if (name != nullptr && std::wcscmp(name, L"color") == 0) {
        return Variant::color;
    }
    return std::nullopt;
}

}  // namespace

ISimulatedCamera* OpenCamera(const wchar_t* variantName, const wchar_t* stateFile) {
    const auto variant = VariantOf(variantName);
    if (!variant) {
        ::SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    std::unique_ptr<StateStorage> storage = StateStorage::Open(*variant, stateFile);
    if (storage == nullptr) {
        return nullptr;
    }
    kolmfluxor::UniqueHandle handle(::CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (handle == nullptr) {
        return nullptr;
    }
    auto camera = std::make_shared<SimulatedCamera>(std::move(storage), std::move(handle), *variant);
    Registry& registry = TheRegistry();
    const std::scoped_lock lock(registry.lock);
    registry.cameras.emplace(camera->Handle(), camera);
    return camera.get();
}

std::shared_ptr<SimulatedCamera> CameraOfHandle(HANDLE handle) {
    Registry& registry = TheRegistry();
    const std::scoped_lock lock(registry.lock);
    const auto found = registry.cameras.find(handle);
    return found != registry.cameras.end() ? found->second : nullptr;
}

void CloseCamera(SimulatedCamera* camera) {
    std::shared_ptr<SimulatedCamera> last;
    Registry& registry = TheRegistry();
    const std::scoped_lock lock(registry.lock);
    const auto found = registry.cameras.find(camera->Handle());
    if (found != registry.cameras.end()) {
        last = std::move(found->second);
        registry.cameras.erase(found);
    }
}

}  // namespace kolmsim
