// ov_model.h as a C program sees it: c_interface_test DESCRIPTOR, on the sample device. Exit status 1 if a check fails.
#include <inttypes.h>
#include <stdio.h>
#include <string.h>

#include "module/ov_model.h"

int32_t DllCanUnloadNow(void);

static int gFailures = 0;

static void Check(int line, int holds, const char* what) {
    if (holds) return;
    ov_error error;
    ov_last_error(&error);
    printf("line %d: %s (last error %" PRId32 " \"%s\")\n", line, what, error.number, error.description);
    ++gFailures;
}
#define CHECK(condition) Check(__LINE__, (condition) != 0, #condition)

static ov_value TextValue(const char* text) {
    ov_value value = {.type = OV_STRING, .text = {text, strlen(text)}};
    return value;
}

static ov_value LongValue(int32_t number) {
    ov_value value = {.type = OV_LONG, .long_integer = number};
    return value;
}

// The object that member `name` of `object` answers; its handle is the caller's.
static ov_object* Get(ov_object* object, const char* name, const char* key) {
    ov_value argument = TextValue(key ? key : "");
    ov_value result = {0};
    CHECK(ov_call(object, name, OV_CALL, &argument, key ? 1 : 0, &result) == 0);
    CHECK(result.type == OV_OBJECT);
    return result.object;
}

// The same one step further, for chains: `object` is released.
static ov_object* Step(ov_object* object, const char* name, const char* key) {
    ov_object* next = Get(object, name, key);
    CHECK(ov_release(object) == 0);
    return next;
}

static int Same(ov_object* a, ov_object* b) {
    const void* first = NULL;
    const void* second = NULL;
    CHECK(ov_identity(a, &first) == 0 && ov_identity(b, &second) == 0 && (first == NULL) == (a == NULL));
    return first == second;
}

static int TextIs(ov_object* object, const char* name, const char* expected) {
    ov_value result = {0};
    const int same = ov_call(object, name, OV_GET, NULL, 0, &result) == 0 && result.type == OV_STRING &&
                     result.text.length == strlen(expected) && strcmp(result.text.bytes, expected) == 0;
    if (!same) printf("%s is \"%s\"\n", name, result.type == OV_STRING ? result.text.bytes : "no text");
    ov_clear(&result);
    return same;
}

static ov_object* ParameterOf(ov_object* module, const char* channel, const char* group, const char* id) {
    ov_object* step = Step(Step(Get(module, "Spec", NULL), "channels", NULL), "Item", channel);
    step = Step(Step(step, "groups", NULL), "Item", group);
    return Step(Step(step, "parameters", NULL), NULL, id);  // the default member is Item
}

static void TestRefusals(ov_object* module) {
    ov_object* made = module;
    ov_value value = {0};
    ov_value bad[] = {
        {.type = 12},
        {.type = OV_STRING, .text = {NULL, 3}},
        {.type = OV_DECIMAL, .decimal = {.low = 1, .scale = 29}},
        {.type = OV_ARRAY, .array = NULL},
        {.type = OV_ARRAY, .array = &(ov_array){.element = OV_BYTE, .rank = 1, .bounds = NULL}},
        {.type = OV_ARRAY,
         .array =
             &(ov_array){
                 .element = OV_BYTE, .rank = 1, .bounds = &(ov_bound){0, 3}, .count = 2, .bytes = (uint8_t[]){1, 2}}},
        {.type = OV_ARRAY, .array = &(ov_array){.rank = 1, .bounds = &(ov_bound){0, -1}, .count = 0}},
        {.type = OV_ARRAY, .array = &(ov_array){.rank = 1, .bounds = &(ov_bound){0, 2}, .count = 2}},
    };
    for (size_t i = 0; i < sizeof bad / sizeof bad[0]; ++i) {
        CHECK(ov_copy(&bad[i], &value) == 5 && value.type == OV_EMPTY);
    }
    ov_value self = {.type = OV_ARRAY};  // an array that is its own element
    ov_array ring = {.rank = 1, .bounds = &(ov_bound){0, 1}, .count = 1, .elements = &self};
    self.array = &ring;
    CHECK(ov_copy(&self, &value) == 458);

    CHECK(ov_create("CBase_Nothing", &made) == 429 && made == NULL);
    CHECK(ov_create(NULL, &made) == 5 && ov_create("CBase_Module", NULL) == 5);
    CHECK(ov_call(NULL, "Gui", OV_CALL, NULL, 0, &value) == 91);
    CHECK(ov_call((ov_object*)&value, "Gui", OV_CALL, NULL, 0, &value) == 424);
    CHECK(ov_call(module, "Gui", 0, NULL, 0, &value) == 5 && ov_call(module, "Gui", 6, NULL, 0, &value) == 5);
    CHECK(ov_call(module, "SetLanguage", OV_CALL, NULL, 1, &value) == 5);
    CHECK(ov_call(module, "Nonsense", OV_CALL, NULL, 0, &value) == 438);
    CHECK(ov_call(module, "Gui", OV_LET, NULL, 0, &value) == 438);
    CHECK(ov_call(module, NULL, OV_CALL, NULL, 0, &value) == 438);  // no default member
    CHECK(ov_call(module, "SetLanguage", OV_CALL, NULL, 0, &value) == 450);
    ov_value word = TextValue("nine");
    CHECK(ov_call(module, "SetLanguage", OV_CALL, &word, 1, &value) == 13);
    word.type = OV_MISSING;
    CHECK(ov_call(module, "SetLanguage", OV_CALL, &word, 1, &value) == 449);
    CHECK(ov_facet(module, "IBase_GuiParameter", &made) == 430 && ov_facet(module, NULL, &made) == 5);
    CHECK(ov_enumerate(module, &made) == 451 && ov_next(module, &value, NULL) == 451);
    CHECK(ov_make_listener(NULL, 0, NULL, NULL, &made) == 5);
    CHECK(ov_set_locale("no-such-locale-at-all") == 5 && ov_set_locale(NULL) == 5);
    CHECK(ov_release(NULL) == 0 && ov_retain(NULL) == 91 && ov_copy(NULL, &value) == 5);
    ov_clear(NULL);
    ov_last_error(NULL);

    CHECK(ov_create("ov_model.CBASE_MODULE", &made) == 0 && ov_retain(made) == 0);
    ov_value held = {.type = OV_OBJECT, .object = made};
    CHECK(ov_release(made) == 0 && ov_call(made, "GetLanguage", OV_CALL, NULL, 0, &value) == 0);
    CHECK(ov_release(made) == 0 && ov_release(made) == 424 && ov_copy(&held, &value) == 424);
    ov_error error;
    ov_last_error(&error);
    CHECK(error.number == 424 && strcmp(error.description, "Object required") == 0 && *error.source == 0);
    CHECK(ov_create("CBase_Nothing", &made) == 429);
    ov_last_error(&error);
    CHECK(strcmp(error.description, "ActiveX component can't create object: 'CBase_Nothing'") == 0);
    CHECK(ov_call(module, "SetSourcPath", OV_CALL, NULL, 0, &value) == 438);
    ov_last_error(&error);
    CHECK(strcmp(error.description, "Object doesn't support this property or method: 'SetSourcPath'") == 0);
}

// Each value comes back from a parameter's tag as it went in.
static void TestValues(ov_object* module) {
    ov_object* parameter = ParameterOf(module, "0", "12", "1201");
    ov_value inner[] = {
        {.type = OV_NULL}, TextValue("\xC3\xA4\xF0\x9F\x98\x80"), {.type = OV_DATE, .double_real = 45000.5}};
    ov_bound pair[] = {{1, 2}, {-3, 2}};
    ov_value four[] = {LongValue(1), LongValue(2), LongValue(3), LongValue(4)};
    uint8_t bytes[] = {0, 255, 7};
    ov_array arrays[] = {
        {.rank = 1, .bounds = &(ov_bound){5, 3}, .count = 3, .elements = inner},
        {.element = OV_LONG, .rank = 2, .bounds = pair, .count = 4, .elements = four},
        {.element = OV_BYTE, .rank = 1, .bounds = &(ov_bound){2, 3}, .count = 3, .bytes = bytes},
        {.rank = 0},
    };
    ov_value values[] = {
        {.type = OV_EMPTY},
        {.type = OV_NULL},
        {.type = OV_INTEGER, .integer = -32768},
        LongValue(INT32_MIN),
        {.type = OV_SINGLE, .single_real = 0.1F},
        {.type = OV_DOUBLE, .double_real = -1e300},
        {.type = OV_CURRENCY, .currency = INT64_MAX},
        {.type = OV_DATE, .double_real = -1.25},
        {.type = OV_STRING, .text = {"a\0b", 3}},
        {.type = OV_STRING, .text = {NULL, 0}},
        {.type = OV_OBJECT, .object = NULL},
        {.type = OV_OBJECT, .object = module},
        {.type = OV_ERROR, .long_integer = 13},
        {.type = OV_BOOLEAN, .long_integer = 1},
        {.type = OV_DECIMAL, .decimal = {UINT64_MAX, UINT32_MAX, 28, 1}},
        {.type = OV_BYTE, .byte = 200},
        {.type = OV_ARRAY, .array = &arrays[0]},
        {.type = OV_ARRAY, .array = &arrays[1]},
        {.type = OV_ARRAY, .array = &arrays[2]},
        {.type = OV_ARRAY, .array = &arrays[3]},
    };
    for (size_t i = 0; i < sizeof values / sizeof values[0]; ++i) {
        ov_value back = {0};
        const int32_t kind = values[i].type == OV_OBJECT ? OV_SET : OV_LET;
        CHECK(ov_call(parameter, "tag", kind, &values[i], 1, NULL) == 0);
        CHECK(ov_call(parameter, "tag", OV_GET, NULL, 0, &back) == 0);
        CHECK(back.type == values[i].type);
        if (back.type == OV_STRING) {
            CHECK(back.text.length == values[i].text.length);
            CHECK(memcmp(back.text.bytes, values[i].text.bytes ? values[i].text.bytes : "", back.text.length) == 0);
        } else if (back.type == OV_OBJECT) {
            CHECK(Same(back.object, values[i].object));
        } else if (back.type == OV_ARRAY) {
            const ov_array* given = values[i].array;
            CHECK(back.array->element == given->element && back.array->count == given->count);
            CHECK(back.array->rank == given->rank);
            CHECK(memcmp(back.array->bounds, given->bounds ? given->bounds : pair, given->rank * sizeof *pair) == 0);
        } else if (back.type == OV_DECIMAL) {
            CHECK(memcmp(&back.decimal, &values[i].decimal, sizeof back.decimal) == 0);
        } else {
            CHECK(back.currency == values[i].currency);  // all members lie in these eight bytes
        }
        if (values[i].array == &arrays[0]) {
            const ov_value* text = &back.array->elements[1];
            CHECK(text->text.length == 6 && memcmp(text->text.bytes, inner[1].text.bytes, 6) == 0);
            CHECK(back.array->elements[2].double_real == 45000.5);
        }
        if (values[i].array == &arrays[1]) CHECK(back.array->elements[2].long_integer == 3);
        if (values[i].array == &arrays[2]) CHECK(memcmp(back.array->bytes, bytes, 3) == 0);
        ov_clear(&back);
        ov_clear(&back);
        CHECK(back.type == OV_EMPTY);
    }
    CHECK(ov_release(parameter) == 0);
}

typedef struct Heard {
    int events;
    int released;
    int32_t failure;
    char value[32];
} Heard;

static int32_t OnValueChanged(void* context, ov_value* arguments, size_t count, ov_value* result) {
    Heard* heard = context;
    ov_value value = {0};
    (void)result;
    ++heard->events;
    CHECK(count == 1 && arguments[0].type == OV_OBJECT);
    CHECK(ov_call(arguments[0].object, "value", OV_GET, NULL, 0, &value) == 0);
    snprintf(heard->value, sizeof heard->value, "%s", value.text.bytes);
    ov_clear(&value);
    ov_clear(&arguments[0]);  // borrowed: nothing ends here
    return heard->failure == 0 ? 0 : ov_raise(heard->failure, "listener", "it does not please");
}

// A service that moves the module's name out, by reference.
static int32_t DoExport(void* context, ov_value* arguments, size_t count, ov_value* result) {
    Heard* heard = context;
    ov_value name = {0};
    ++heard->events;
    CHECK(count == 3 && arguments[1].type == OV_LONG && arguments[1].long_integer == 5);
    ov_object* gui = Get(arguments[0].object, "Gui", NULL);
    CHECK(ov_call(gui, "name", OV_CALL, NULL, 0, &name) == 0 && ov_release(gui) == 0);
    arguments[1] = name;
    arguments[1].written = 1;
    result->type = OV_BOOLEAN;
    result->long_integer = 1;
    return 0;
}

static void Ended(void* context) {
    ++((Heard*)context)->released;
}

static const ov_listener_entry kValueEntries[] = {{"onparametervaluechanged", OnValueChanged}};
static const ov_listener_entry kExportEntries[] = {{"DoExport", DoExport}};

static void TestListeners(ov_object* module) {
    Heard heard = {0};
    ov_object* gui = Step(ParameterOf(module, "0", "12", "1201"), "Gui", NULL);
    ov_value listener = {.type = OV_OBJECT};
    ov_value edit = TextValue("5");
    CHECK(ov_make_listener(kValueEntries, 1, &heard, Ended, &listener.object) == 0);
    CHECK(ov_call(gui, "RegisterCallback", OV_METHOD, &listener, 1, NULL) == 0);
    CHECK(ov_release(listener.object) == 0);
    CHECK(ov_call(gui, "value", OV_LET, &edit, 1, NULL) == 0);
    CHECK(heard.events == 1 && strcmp(heard.value, "5") == 0);
    heard.failure = 1234;
    edit = TextValue("6");
    CHECK(ov_call(gui, "value", OV_LET, &edit, 1, NULL) == 1234 && heard.events == 2);
    ov_error error;
    ov_last_error(&error);
    CHECK(strcmp(error.source, "listener") == 0 && strcmp(error.description, "it does not please") == 0);
    CHECK(heard.released == 0);
    CHECK(ov_make_listener(kValueEntries, 1, &heard, Ended, &listener.object) == 0);  // the same one again
    CHECK(ov_call(gui, "UnregisterCallback", OV_METHOD, &listener, 1, NULL) == 0);
    CHECK(heard.released == 0 && ov_release(listener.object) == 0 && heard.released == 1);
    edit = TextValue("7");
    CHECK(ov_call(gui, "value", OV_LET, &edit, 1, NULL) == 0 && heard.events == 2);
    CHECK(TextIs(gui, "value", "7") && ov_release(gui) == 0);

    ov_object* spec = Get(module, "Spec", NULL);
    ov_value service = {.type = OV_OBJECT};
    CHECK(ov_make_listener(kExportEntries, 1, &heard, Ended, &service.object) == 0);
    CHECK(ov_call(spec, "RegisterImExport", OV_METHOD, &service, 1, NULL) == 0 && ov_release(service.object) == 0);
    ov_value data[] = {LongValue(5), LongValue(1)};
    ov_value done = {0};
    CHECK(ov_call(spec, "Export", OV_METHOD, data, 2, &done) == 0 && done.long_integer == 1 && heard.events == 3);
    CHECK(data[0].written && data[0].type == OV_STRING &&
          strcmp(data[0].text.bytes, "TT200 temperature transmitter HART") == 0);
    ov_clear(&data[0]);
    ov_clear(&data[1]);
    ov_value nothing = {.type = OV_OBJECT};
    CHECK(ov_call(spec, "RegisterImExport", OV_METHOD, &nothing, 1, NULL) == 0 && heard.released == 2);
    CHECK(ov_release(spec) == 0);
}

static void TestImages(ov_object* module) {
    ov_object* parameter = ParameterOf(module, "0", "12", "1201");
    ov_value seven = LongValue(7);
    CHECK(ov_call(parameter, "value", OV_LET, &seven, 1, NULL) == 0);
    uint8_t image[] = {0xFF, 0xFF};
    ov_array array = {.element = OV_BYTE, .rank = 1, .bounds = &(ov_bound){0, 2}, .count = 2, .bytes = image};
    ov_value arguments[] = {{.type = OV_ARRAY, .array = &array}, LongValue(1), {.type = OV_MISSING}};
    ov_value done = {0};
    CHECK(ov_call(parameter, "ExportToByteArrayMapByMemory", OV_METHOD, arguments, 3, &done) == 0);
    CHECK(done.type == OV_BOOLEAN && done.long_integer == 1);
    CHECK(arguments[0].written && arguments[0].array != &array && image[1] == 0xFF);
    CHECK(arguments[0].array->bytes[0] == 0xFF && arguments[0].array->bytes[1] == 7);
    CHECK(!arguments[1].written && arguments[2].type == OV_MISSING);
    ov_clear(&arguments[0]);
    ov_value text = TextValue("0000");
    CHECK(ov_call(parameter, "exporttohexstringmapbymemory", OV_CALL, &text, 1, &done) == 0);
    CHECK(text.written && strcmp(text.text.bytes, "0700") == 0);
    ov_clear(&text);
    CHECK(ov_release(parameter) == 0);
}

static void TestDiscovery(ov_object* module) {
    ov_object* spec = ParameterOf(module, "0", "12", "1201");
    ov_object* storage = NULL;
    const char* name = NULL;
    ov_value className = {0};
    CHECK(ov_facet(spec, "ibase_SpecParameterStorage", &storage) == 0);
    CHECK(Same(spec, storage) && !Same(spec, module) && !Same(spec, NULL));
    CHECK(ov_interface_name(storage, &name) == 0 && strcmp(name, "_IBase_SpecParameterStorage") == 0);
    CHECK(ov_class_name(storage, &className) == 0 && strcmp(className.text.bytes, "CBase_ParameterInt") == 0);
    ov_clear(&className);
    ov_member_info member;
    CHECK(ov_member(storage, 1, &member) == 0 && strcmp(member.name, "realvalueForStorage") == 0);
    CHECK(member.kind == OV_LET && member.required == 1 && member.total == 1 && member.is_default == 0);
    CHECK(ov_member(storage, 2, &member) == 9 && member.name == NULL);
    CHECK(ov_release(storage) == 0 && ov_release(spec) == 0);

    ov_object* channels = Step(Get(module, "Gui", NULL), "channels", NULL);
    ov_object* walk = NULL;
    ov_value item = {0};
    int32_t found = 0;
    int count = 0;
    CHECK(ov_enumerate(channels, &walk) == 0);
    while (ov_next(walk, &item, &found) == 0 && found) {
        CHECK(item.type == OV_OBJECT && ov_interface_name(item.object, &name) == 0);
        CHECK(strcmp(name, "_IBase_GuiChannel") == 0);
        ov_clear(&item);
        ++count;
    }
    CHECK(count == 3 && item.type == OV_EMPTY && ov_release(walk) == 0);
    ov_object* missing = Get(channels, "Item", "none");
    CHECK(missing == NULL && ov_release(channels) == 0);
}

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    ov_object* module = NULL;
    ov_value path = TextValue(argv[1]);
    ov_value type = TextValue("TT200 HART");
    ov_value language = LongValue(9);
    ov_value done = {0};
    ov_error none;
    ov_last_error(&none);
    CHECK(none.number == 0 && strncmp(ov_version(), "3.27", 4) == 0 && ov_set_locale("en-US") == 0);
    CHECK(ov_create("CBase_Module", &module) == 0);
    CHECK(ov_call(module, "SetSourcePath", OV_METHOD, &path, 1, NULL) == 0);
    CHECK(ov_call(module, "SetLanguage", OV_METHOD, &language, 1, NULL) == 0);
    CHECK(ov_call(module, "Load", OV_METHOD, &type, 1, &done) == 0 && done.type == OV_BOOLEAN &&
          done.long_integer == 1);
    TestRefusals(module);
    TestDiscovery(module);
    TestValues(module);
    TestListeners(module);
    TestImages(module);
    CHECK(ov_call(module, "Unload", OV_METHOD, NULL, 0, &done) == 0 && done.type == OV_EMPTY);
    CHECK(DllCanUnloadNow() == 1);
    CHECK(ov_release(module) == 0 && DllCanUnloadNow() == 0);
    if (gFailures == 0) puts("all checks hold");
    return gFailures != 0;
}
