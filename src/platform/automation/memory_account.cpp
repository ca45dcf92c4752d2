#include "platform/automation/memory_account.h"

#include <algorithm>

#include "platform/automation/errors.h"

namespace ov {

void MemoryAccount::Refuse(std::size_t bytes) {
    sUsed -= bytes;
    Raise(ErrorNumber::OutOfMemory);
}

MemoryAccount::Limit::Limit(std::size_t bytes) noexcept : mLimited(sLimited), mFloor(sFloor), mLimit(sLimit) {
    if (sLimited) bytes = std::min(bytes, sLimit - std::min(sLimit, Grown()));
    sLimited = true;
    sFloor = sUsed;
    sLimit = bytes;
}

MemoryAccount::Limit::~Limit() {
    sLimited = mLimited;
    sFloor = mFloor;
    sLimit = mLimit;
}

}  // namespace ov
