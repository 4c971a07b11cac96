#include "lut/lut_loader.h"

namespace kolmfluxor {

bool LoadLutSet(CLutSet& set, const CCsvTable& table, std::uint32_t bytesPerValue) {
    set.SetValid(false);
    switch (bytesPerValue) {
    case 1:
        set.SetType(LutType::bits8);
        set.Resize8Bit(table.GetLUTCount());
        set.SetValid(table.FillAll(set.Luts8Bit()));
        break;
    case 2:
        set.SetType(LutType::bits16);
        set.Resize16Bit(table.GetLUTCount());
        set.SetValid(table.FillAll(set.Luts16Bit()));
        break;
    default:
        break;
    }
    return set.IsValid();
}

}  // namespace kolmfluxor
