/* Writes a parameter as a user does and tells what that sets off.
 *
 *   host_c DB TYPE CHANNEL GROUP PARAMETER TEXT
 *
 * DB is an absolute path. Exit status 2 for wrong arguments, 1 for an error.
 */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <ov_model.h>

/* Ends the program at the first error. A host that goes on would release what it holds. */
static void Must(int32_t status, const char* what) {
    if (status == 0) return;
    ov_error error;
    ov_last_error(&error);
    fprintf(stderr, "host_c: %s: error %d, %s\n", what, (int)error.number, error.description);
    exit(1);
}

static ov_value TextValue(const char* text) {
    ov_value value = {.type = OV_STRING, .text = {text, strlen(text)}};
    return value;
}

/* Member `name` of an object, which is released, and its argument `key`, unless that is null. */
static ov_object* Step(ov_object* from, const char* name, const char* key) {
    ov_value argument = TextValue(key ? key : "");
    ov_value result = {0};
    Must(ov_call(from, name, OV_CALL, &argument, key ? 1 : 0, &result), name);
    ov_release(from);
    if (result.type != OV_OBJECT || !result.object) {
        fprintf(stderr, "host_c: there is no %s %s\n", name, key ? key : "");
        exit(1);
    }
    return result.object;
}

static void PrintMember(ov_object* object, const char* name) {
    ov_value result = {0};
    Must(ov_call(object, name, OV_CALL, NULL, 0, &result), name);
    if (result.type == OV_STRING) fputs(result.text.bytes, stdout);
    ov_clear(&result);
}

static int32_t OnValueChanged(void* context, ov_value* arguments, size_t count, ov_value* result) {
    (void)result;
    if (count != 1) return 5;
    ++*(int*)context;
    PrintMember(arguments[0].object, "name");
    fputs(" is now ", stdout);
    PrintMember(arguments[0].object, "value");
    fputs(" ", stdout);
    PrintMember(arguments[0].object, "unit");
    puts("");
    return 0;
}

int main(int argc, char** argv) {
    static const ov_listener_entry entries[] = {{"OnParameterValueChanged", OnValueChanged}};
    if (argc != 7) {
        fputs("usage: host_c DB TYPE CHANNEL GROUP PARAMETER TEXT\n", stderr);
        return 2;
    }
    int events = 0;
    ov_object* module = NULL;
    ov_value path = TextValue(argv[1]);
    ov_value type = TextValue(argv[2]);
    ov_value text = TextValue(argv[6]);
    ov_value language = {.type = OV_LONG, .long_integer = 9};
    ov_value done = {0};
    ov_value listener = {.type = OV_OBJECT};

    Must(ov_create("CBase_Module", &module), "create");
    Must(ov_call(module, "SetSourcePath", OV_METHOD, &path, 1, NULL), "SetSourcePath");
    Must(ov_call(module, "SetLanguage", OV_METHOD, &language, 1, NULL), "SetLanguage");
    Must(ov_call(module, "Load", OV_METHOD, &type, 1, &done), "Load");
    if (!done.long_integer) {
        fprintf(stderr, "host_c: cannot load '%s' from %s\n", argv[2], argv[1]);
        return 1;
    }

    ov_retain(module); /* Step releases what it starts from */
    ov_object* gui = Step(module, "Gui", NULL);
    Must(ov_make_listener(entries, 1, &events, NULL, &listener.object), "listener");
    Must(ov_call(gui, "RegisterCallback", OV_METHOD, &listener, 1, NULL), "RegisterCallback");
    ov_release(listener.object); /* the module holds it now */
    ov_release(gui);

    ov_retain(module);
    ov_object* step = Step(Step(Step(module, "Spec", NULL), "channels", NULL), "Item", argv[3]);
    step = Step(Step(Step(step, "groups", NULL), "Item", argv[4]), "parameters", NULL);
    ov_object* parameter = Step(Step(step, "Item", argv[5]), "Gui", NULL);
    Must(ov_call(parameter, "value", OV_LET, &text, 1, NULL), "value");
    printf("%d values changed\n", events);
    ov_release(parameter);

    Must(ov_call(module, "Unload", OV_METHOD, NULL, 0, NULL), "Unload");
    ov_release(module);
    return 0;
}
