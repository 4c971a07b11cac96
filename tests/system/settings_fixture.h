#pragma once
/// @file  A camera with every setting away from the factory's, and files of settings.

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "system/support_kolmctl.h"

namespace kolmfluxor::test {

/// A register and a word that differs from the factory's.
struct ChangedRegister {
    std::uint32_t address;
    std::uint32_t word;
};

// clang-format off
inline constexpr ChangedRegister kChangedRegisters[] = {
    {0xF0F0060C, 0x93000000},  // ISOCtrl: channel 9, S800
    {0xF0F00800, 0x82000021},  // Brightness
    {0xF0F00804, 0x82000060},  // AutoExposure
    {0xF0F00808, 0x80000005},  // Sharpness: off
    {0xF0F0080C, 0x820640C8},  // WhiteBalance: 100, 200
    {0xF0F00810, 0x82000064},  // Hue
    {0xF0F00814, 0x80000020},  // Saturation: off
    {0xF0F00818, 0x82000000},  // Gamma: on
    {0xF0F0081C, 0x82000123},  // Shutter
    {0xF0F00820, 0x820000AA},  // Gain
    {0xF0F00830, 0x83230007},  // Trigger: on, high, source 1, mode 3, parameter 7
    {0xF1000208, 0x80000002},  // KolmTimeBase
    {0xF100020C, 0x8001E240},  // KolmExtShutter: 123456 us
    {0xF1000210, 0x80000003},  // KolmTestImage
    {0xF1000220, 0x82000005},  // KolmSeqCtrl
    {0xF1000240, 0x82000002},  // KolmLUTCtrl
    {0xF1000250, 0x8A000020},  // KolmShadingCtrl: on, data shown
    {0xF1000260, 0x83001005},  // KolmDeferredTrans
    {0xF1000280, 0x82000302},  // KolmHDRCtrl
    {0xF1000284, 1234}, {0xF1000288, 567}, {0xF100028C, 89},
    {0xF1000290, 0x88000007},  // KolmDSNUCtrl: off, data shown
    {0xF1000294, 0x80000009},  // KolmBlemishCtrl: off
    {0xF1000300, 0x81050001}, {0xF1000304, 0x80060000}, {0xF1000308, 0x81000000}, {0xF100030C, 0x80070000},  // inputs
    {0xF1000320, 0x81090001}, {0xF1000324, 0x80040000}, {0xF1000328, 0x81030000}, {0xF100032C, 0x800C0001},  // outputs
    {0xF1000340, 0x82000309},  // KolmIntegrationEnableDelay
    {0xF1000364, 100}, {0xF1000368, 90000},
    {0xF1000370, 0x80C80014},  // KolmAutoGainCtrl: 20 to 200
    {0xF1000390, 0x8A004004},  // KolmAutoFunctionAOI: on, shown
    {0xF1000394, 0x00500028}, {0xF1000398, 0x00A00078},
    {0xF10003A0, 0x80000000},  // KolmColorCorrection: on
    {0xF10003A4, 1000}, {0xF10003A8, 0xFFFFFFF9}, {0xF10003AC, 7}, {0xF10003B0, 11}, {0xF10003B4, 1001},
    {0xF10003B8, 0xFFFFFFF5}, {0xF10003BC, 13}, {0xF10003C0, 0xFFFFFFF3}, {0xF10003C4, 1002},
    {0xF1000400, 0x82001388},  // KolmTriggerDelay
    {0xF1000410, 0x83000000},  // KolmMirrorImage: both
    {0xF1000440, 0x82000123},  // KolmLowSmear
    {0xF1000520, 0x82000010},  // KolmHighSNR
    {0xF1000560, 0x82000111}, {0xF1000570, 0x82000222}, {0xF1000580, 0x82000333},
};

/// The scalable modes: color codings, sizes, then positions, then packets. Mode 3 gets the second coding on a color
/// camera, the first one on a monochrome one.
inline constexpr ChangedRegister kChangedModes[] = {
    {0xF0F0B010, 0x05000000}, {0xF0F0B010, 0x02000000},
    {0xF0F0800C, 0x02800140}, {0xF0F08008, 0x00400020}, {0xF0F08044, 0x01900000},
    {0xF0F0900C, 0x01400140}, {0xF0F0A00C, 0x02800140}, {0xF0F0A008, 0x00400020}, {0xF0F0A044, 0x02580000},
    {0xF0F0B00C, 0x01400140}, {0xF0F0C00C, 0x00A00078}, {0xF0F0D00C, 0x02800140},
    {0xF0F0E00C, 0x01400140}, {0xF0F0F00C, 0x02000140},
};

/// The camera in Format 7 mode 2.
inline constexpr ChangedRegister kScalableFormat[] = {{0xF0F00604, 0x40000000}, {0xF0F00608, 0xE0000000}};
/// Still 640x480 Mono8, but at 7.5 frames per second.
inline constexpr ChangedRegister kFixedFormat[] = {{0xF0F00600, 0x40000000}};
// clang-format on

/// A file in a folder of its own, which goes with it.
class CSettingsFile {
public:
    explicit CSettingsFile(const wchar_t* name = L"camera.json") : m_name(name) {
        std::array<wchar_t, MAX_PATH> folder{};
        std::array<wchar_t, MAX_PATH> path{};
        ::GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
        ::GetTempFileNameW(folder.data(), L"set", 0, path.data());
        std::filesystem::remove(path.data());
        m_folder = path.data();
        std::filesystem::create_directory(m_folder);
    }
    ~CSettingsFile() { std::filesystem::remove_all(m_folder); }
    CSettingsFile(const CSettingsFile&) = delete;
    CSettingsFile& operator=(const CSettingsFile&) = delete;

    [[nodiscard]] std::wstring Path() const { return (m_folder / m_name).wstring(); }

    [[nodiscard]] std::string Content() const {
        std::ifstream file(m_folder / m_name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    void Write(const std::string& content) const { std::ofstream(m_folder / m_name, std::ios::binary) << content; }

    /// How many files the folder has.
    [[nodiscard]] std::ptrdiff_t Files() const {
        return std::distance(std::filesystem::directory_iterator(m_folder), {});
    }

private:
    std::filesystem::path m_folder;
    std::wstring m_name;
};

class KolmctlSettings : public KolmctlTest {
protected:
    static ProcessOutcome Save(const std::wstring& variant = L"color") {
        return Kolmctl({L"--simulate=" + variant, L"save", L"-"});
    }
    static ProcessOutcome Load(const std::string& text, const std::wstring& variant = L"color") {
        return Kolmctl({L"--simulate=" + variant, L"load", L"-"}, text);
    }

    /// A file with these settings, as text.
    static std::string File(const std::string& settings) { return R"({"version": 1, "settings": {)" + settings + "}}"; }

    /// Lines of settings by their names, without the comma at their ends.
    static std::map<std::string, std::string> Lines(const std::string& text) {
        std::map<std::string, std::string> lines;
        std::istringstream stream(text);
        std::string line;
        while (std::getline(stream, line)) {
            if (line.starts_with("    \"")) {
                line.erase(line.find_last_not_of(',') + 1);
                lines[line.substr(5, line.find('"', 5) - 5)] = line;
            }
        }
        return lines;
    }

    template <std::size_t size>
    static void Poke(kolmsim::ISimulatedCamera& camera, const ChangedRegister (&rows)[size]) {
        for (const ChangedRegister& row : rows) {
            EXPECT_TRUE(camera.PokeRegister(row.address, row.word)) << std::hex << row.address;
        }
    }

    /// Each setting gets another value than the factory's, past all of kolmctl.
    template <std::size_t size>
    void ChangeEverything(const wchar_t* variant, const ChangedRegister (&format)[size]) const {
        constexpr std::uint32_t kChannel = 55;
        constexpr std::uint32_t kFeature520 = 28;
        constexpr std::uint32_t kGeometrySwitch = 61;
        const UniqueCamera camera = OpenCamera(variant);
        Poke(*camera, kChangedRegisters);
        Poke(*camera, kChangedModes);
        Poke(*camera, format);
        EXPECT_TRUE(camera->SetFeatureWord(kChannel, kMode, kManualBit));
        EXPECT_TRUE(camera->SetFeatureWord(kFeature520, kValue, 77));
        EXPECT_TRUE(camera->SetFeatureWord(kGeometrySwitch, kValue, 1));
    }
};

}  // namespace kolmfluxor::test
