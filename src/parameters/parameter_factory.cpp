#include "parameters/parameter_factory.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "parameters/integer_type.h"
#include "parameters/parameter_decimal.h"
#include "parameters/parameter_enum.h"
#include "parameters/parameter_enum_s.h"
#include "parameters/parameter_env_string.h"
#include "parameters/parameter_float.h"
#include "parameters/parameter_int.h"
#include "parameters/parameter_string.h"
#include "parameters/subtype.h"
#include "platform/automation/conversions.h"

namespace ov {

namespace {

using Maker = Ref<IBase_Internal> (*)(const Variant& subtype);

template <class Class>
Ref<IBase_Internal> Make(const Variant&) {
    return MakeObject<Class>();
}

// A Long has room for 31 bits without sign and for 32 with one.
Ref<IBase_Internal> MakeInteger(const Variant& subtype) {
    constexpr double kWidestUnsigned = 31, kWidestSigned = 32;
    const Text fallback(IntegerType<std::int32_t>::kDefaultSubtype);
    const Subtype type = ReadSubtype(ToText(NullToDefault(subtype, fallback)), u"us");
    if (type.width > (type.letter == u'u' ? kWidestUnsigned : kWidestSigned)) {
        return MakeObject<ParameterDecimal>();
    }
    return MakeObject<ParameterInt>();
}

struct TypeWord {
    std::u16string_view word;
    Maker make;
};

constexpr std::array kTypeWords = {
    TypeWord{u"INT", &MakeInteger},
    TypeWord{u"HEX", &Make<ParameterInt>},
    TypeWord{u"FLOAT", &Make<ParameterFloat>},
    TypeWord{u"ENUM", &Make<ParameterEnum>},
    TypeWord{u"SELECT", &Make<ParameterEnum>},
    TypeWord{u"ACTION", &Make<ParameterEnum>},
    TypeWord{u"ENUMSTR", &Make<ParameterEnumS>},
    TypeWord{u"SELECTSTR", &Make<ParameterEnumS>},
    TypeWord{u"STRING", &Make<ParameterString>},
    TypeWord{u"ENVIROMENT", &Make<ParameterENVString>},
};

}  // namespace

Ref<IBase_Internal> MakeParameter(const Text& type, const Variant& subtype) {
    const auto* at = std::ranges::find(kTypeWords, type.view(), &TypeWord::word);
    return at != kTypeWords.end() ? at->make(subtype) : nullptr;
}

}  // namespace ov
