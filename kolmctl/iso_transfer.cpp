#include "iso_transfer.h"

#include <algorithm>
#include <cctype>
#include <iterator>

#include "errors.h"
#include "feature_reading.h"
#include "text.h"

namespace kolmctl {
namespace {

constexpr const char* kSpeeds[] = {"S100", "S200", "S400", "S800", "S1600", "S3200"};  // by index

}  // namespace

std::string SpeedText(ULONG index) {
    return index < std::size(kSpeeds) ? kSpeeds[index] : "index " + std::to_string(index);
}

ULONG ParseSpeed(const std::string& text) {
    std::string name = text;
    if (!name.empty() && std::isdigit(static_cast<unsigned char>(name.front())) != 0) {
        name.insert(0, "S");
    }
    const auto* const found = std::ranges::find_if(
        kSpeeds, [&](const char* speed) { return EqualWithoutCase(ToUtf16(speed), ToUtf16(name)); });
    if (found == std::end(kSpeeds)) {
        throw UsageError("unknown speed \"" + text + "\"",
                         "known are " + Join({std::begin(kSpeeds), std::end(kSpeeds)}, ", "));
    }
    return static_cast<ULONG>(found - std::begin(kSpeeds));
}

Table IsoTable(kolmfluxor::IKolmFluxorPropertySet& camera) {
    ULONG speed = 0;
    ULONG slowest = 0;
    ULONG fastest = 0;
    Check(camera.GetIsoSpeed(&speed), "cannot read the speed");
    Check(camera.GetIsoSpeedRange(&slowest, &fastest), "cannot read the range of the speed");
    const FeatureReading channel = ReadFeature(camera, ParseFeature("iso-channel"));
    ULONG lowest = 0;
    ULONG highest = 0;
    Check(camera.GetFeatureRange(IdOf(*channel.feature), &lowest, &highest), "cannot read the range of iso-channel");

    Table table("iso",
                {{"speed", "speed", Align::left},
                 {"speedMin", "slowest", Align::left},
                 {"speedMax", "fastest", Align::left},
                 {"channel", "channel", Align::left},
                 {"channelMode", "channel mode", Align::left},
                 {"channelMin", "lowest channel", Align::left},
                 {"channelMax", "highest channel", Align::left}},
                Layout::records);
    table.Add({SpeedText(speed), SpeedText(slowest), SpeedText(fastest), channel.value, ModeText(channel.mode), lowest,
               highest});
    return table;
}

}  // namespace kolmctl
