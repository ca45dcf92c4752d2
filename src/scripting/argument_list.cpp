#include "scripting/argument_list.h"

namespace ov {

Text ErrorDetail(const RuntimeError& error) {
    return error.number() > 0 ? error.description() : Text(u"Err=0");
}

}  // namespace ov
