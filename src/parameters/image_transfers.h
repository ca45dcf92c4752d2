/// @file
/// The four transfers between a parameter and a device image.
#pragma once

#include <optional>
#include <type_traits>

#include "parameters/device_image.h"
#include "platform/automation/errors.h"
#include "platform/automation/unknown.h"

namespace ov {

/// Gives the final class @p Self, which derives from this, the transfers as one operation: its
///     bool MoveValue(Image image, const ImagePlace& place)
/// for each pointer that a DeviceImage holds, or for DeviceImage itself. What that raises is a failed transfer, which
/// an import leaves a log line of. The write of an import may end the parameter: nothing of it is touched behind one.
template <class Self, class Base>
class ImageTransfers : public Base {
public:
    bool ExportToByteArrayMapByMemory(ByteArray& target, std::optional<std::int32_t> startByte,
                                      std::optional<std::int32_t> bitlength, std::optional<std::int32_t> startBit,
                                      std::optional<eByteOrder> byteOrder) final {
        return Transfer(&target, startByte, bitlength, startBit, byteOrder);
    }
    bool ImportFromByteArrayMapByMemory(const ByteArray& source, std::optional<std::int32_t> startByte,
                                        std::optional<std::int32_t> bitlength, std::optional<std::int32_t> startBit,
                                        std::optional<eByteOrder> byteOrder) final {
        return Transfer(&source, startByte, bitlength, startBit, byteOrder);
    }
    bool ExportToHexStringMapByMemory(Text& target, std::optional<std::int32_t> startByte,
                                      std::optional<std::int32_t> bitlength, std::optional<std::int32_t> startBit,
                                      std::optional<eByteOrder> byteOrder) final {
        return Transfer(&target, startByte, bitlength, startBit, byteOrder);
    }
    bool ImportFromHexStringMapByMemory(const Text& source, std::optional<std::int32_t> startByte,
                                        std::optional<std::int32_t> bitlength, std::optional<std::int32_t> startBit,
                                        std::optional<eByteOrder> byteOrder) final {
        return Transfer(&source, startByte, bitlength, startBit, byteOrder);
    }

protected:
    ImageTransfers() = default;
    ~ImageTransfers() = default;

private:
    template <class Image>
    bool Transfer(Image* image, std::optional<std::int32_t> startByte, std::optional<std::int32_t> bitlength,
                  std::optional<std::int32_t> startBit, std::optional<eByteOrder> byteOrder) {
        constexpr bool kIsImport = std::is_const_v<Image>;
        if constexpr (!kIsImport) this->mTrace.NoteRead();
        try {
            return static_cast<Self*>(this)->MoveValue(
                image, ImagePlace{startByte.value_or(0), bitlength.value_or(0), startBit.value_or(0),
                                  byteOrder.value_or(eByteOrder::eLittleEndian)});
        } catch (const RuntimeError& failure) {
            if (kIsImport) this->LogFailedImport(image, failure);
            return false;
        }
    }
};

}  // namespace ov
