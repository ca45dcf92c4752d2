/**
 * @file
 * The library for hosts in C and in every language that can call C: objects by name, values with a tag.
 *
 *     ov_object* module = NULL;
 *     ov_value path = {.type = OV_STRING, .text = {"/opt/tt200/tt200.db", 19}};
 *     ov_value done = {0};
 *     if (ov_create("CBase_Module", &module) != 0) return 1;
 *     ov_call(module, "SetSourcePath", OV_METHOD, &path, 1, &done);
 *
 * What the objects can do stands in the headers under contract/; each operation and property is reached by the name
 * that it has there, without regard to case.
 *
 * **Status.** Functions that can fail return 0, or the number of a run-time error: 5 for an argument that makes no
 * sense (a null pointer where one is needed, an unknown kind or tag), 424 for a handle that is none or no longer one,
 * else what the operation raised. ov_last_error tells more. On a failure the results are null or empty. Nothing else
 * ever leaves the library: no exception, no signal, no longjmp.
 *
 * **Ownership.** A handle that a function gives is the caller's and ends with ov_release. A value that a function
 * gives is the caller's and ends with ov_clear; a result is written without regard to what was in it, so give an empty
 * or cleared one. Arguments are borrowed for the call. The library writes `owned` into values that hold something of
 * its own; in values of the caller's making it is 0, and ov_clear leaves what they point to alone.
 *
 * **Thread.** All calls come on one thread, the host's; so do the calls of listeners, before the operation that caused
 * them returns. A listener may call anything. Nothing is locked.
 *
 * **Lifetime of a tree.** Children hold their parents, so a module that was loaded ends with its operation "Unload"
 * and not with its last handle.
 */
#ifndef OV_MODEL_H
#define OV_MODEL_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

/** An object seen through one of its interfaces. Opaque; a null pointer is "Nothing". */
typedef struct ov_object ov_object;

/** What a value holds; the numbers are those of the rule language's VarType. */
enum ov_type {
    OV_EMPTY = 0, /**< no value; a structure of zeros */
    OV_NULL = 1,
    OV_INTEGER = 2,      /**< 16 bits: `integer` */
    OV_LONG = 3,         /**< 32 bits: `long_integer` */
    OV_SINGLE = 4,       /**< `single_real` */
    OV_DOUBLE = 5,       /**< `double_real` */
    OV_CURRENCY = 6,     /**< units of 1/10,000: `currency` */
    OV_DATE = 7,         /**< days from 1899-12-30, the time of day as the fraction's absolute value: `double_real` */
    OV_STRING = 8,       /**< `text` */
    OV_OBJECT = 9,       /**< `object`, null for Nothing */
    OV_ERROR = 10,       /**< an error code, not a value: `long_integer` */
    OV_BOOLEAN = 11,     /**< 0 is False, all else True: `long_integer` */
    OV_DECIMAL = 14,     /**< `decimal` */
    OV_BYTE = 17,        /**< `byte` */
    OV_MISSING = 0x1000, /**< an optional argument that is left out */
    OV_ARRAY = 0x2000    /**< `array` */
};

/** How a member is used. */
enum ov_call_kind {
    OV_METHOD = 1,
    OV_GET = 2,
    OV_CALL = 3, /**< a method or the reading of a property, whichever the member is */
    OV_LET = 4,  /**< the writing of a property; the new value is the last argument */
    OV_SET = 8   /**< the same with an object */
};

/** UTF-8 with its length in bytes; may hold any character. Malformed bytes are read as U+FFFD, and one half of a
 *  surrogate pair is written as that. A text that the library gives has a 0 behind its last byte. */
typedef struct ov_text {
    const char* bytes;
    size_t length;
} ov_text;

/** (high x 2^64 + low) / 10^scale; scale is 0 to 28. */
typedef struct ov_decimal {
    uint64_t low;
    uint32_t high;
    uint8_t scale;
    uint8_t negative;
} ov_decimal;

/** One dimension of an array. */
typedef struct ov_bound {
    int32_t lower; /**< the first index */
    int32_t count;
} ov_bound;

struct ov_value;

/** An array. Elements stand in storage order: the first index moves fastest. */
typedef struct ov_array {
    uint16_t element;          /**< OV_EMPTY for elements of any type, OV_BYTE for `bytes`, else the type of all */
    uint16_t rank;             /**< number of dimensions; 0 for an array that was never allocated */
    const ov_bound* bounds;    /**< one for each dimension */
    size_t count;              /**< number of elements: the product of the counts */
    uint8_t* bytes;            /**< the elements of an array of Byte, else null */
    struct ov_value* elements; /**< the elements of any other */
} ov_array;

/** A value with its tag. Start with zeros. */
typedef struct ov_value {
    uint16_t type;   /**< an ov_type, which says what member of the union counts */
    uint8_t owned;   /**< set by the library; ov_clear is needed */
    uint8_t written; /**< set on an argument by whoever was called and wrote it, by reference */
    union {
        uint8_t byte;
        int16_t integer;
        int32_t long_integer;
        float single_real;
        double double_real;
        int64_t currency;
        ov_text text;
        ov_decimal decimal;
        ov_array* array;
        ov_object* object;
    };
} ov_value;

/** The error of the last call that failed. */
typedef struct ov_error {
    int32_t number;
    const char* source;      /**< the component that raised it, UTF-8; may be "" */
    const char* description; /**< a sentence, UTF-8 */
} ov_error;

/** One form of a member: a property that can be read and written has two entries of one name. */
typedef struct ov_member_info {
    const char* name;
    int32_t kind;       /**< OV_METHOD, OV_GET, OV_LET or OV_SET */
    int32_t required;   /**< leading arguments that may not be left out, the new value of a Let or Set included */
    int32_t total;      /**< all arguments; -1 if there may be any number */
    int32_t is_default; /**< 1 for the member that an object answers with when none is named */
} ov_member_info;

/** A listener's operation. @p arguments are borrowed for the call; an object among them that is to be kept needs
 *  ov_retain. To write an argument that goes by reference, put a new value in its place and set its `written`. What it
 *  writes there and to @p result may be owned (then the library clears it) or point to memory that outlives the
 *  return; ov_copy makes an owned value. @p result is empty at first.
 *  @returns 0, or the number of a run-time error that goes to the caller; see ov_raise */
typedef int32_t (*ov_operation)(void* context, ov_value* arguments, size_t count, ov_value* result);

/** One operation of a listener by name, such as "OnParameterValueChanged". */
typedef struct ov_listener_entry {
    const char* name;
    ov_operation call;
} ov_listener_entry;

/** The library's version, such as "3.27.0". Valid for ever. */
const char* ov_version(void);

/** Sets the process's locale of numbers and dates by a name such as "de-DE". At first it is the environment's. */
int32_t ov_set_locale(const char* name);

/** A new object of a creatable class, such as "CBase_Module" ("OV_Model.CBase_Module" is taken too), seen through its
 *  default interface. @returns 429 if there is no such class */
int32_t ov_create(const char* class_name, ov_object** object);

/** Calls a member of @p object.
 *  @param name null for the default member
 *  @param kind an ov_call_kind
 *  @param arguments @p count of them. Optional ones may be left out at the end or given as OV_MISSING. One that the
 *      member wrote by reference is replaced and marked `written`: ov_clear each argument behind the call, which costs
 *      nothing for the others. Arguments from the 33rd on are not written back.
 *  @param result may be null; empty for a member that has none
 *  @returns 438 if there is no such member or it has no such form, 450 for a wrong number of arguments, 449 for a
 *      missing one that is not optional, 13 for one of the wrong type, and what the member raises */
int32_t ov_call(ov_object* object, const char* name, int32_t kind, ov_value* arguments, size_t count, ov_value* result);

/** Another interface of the same object, by its name with or without the leading underscore, such as
 *  "IBase_SpecParameterStorage". @returns 430 if the object does not have it */
int32_t ov_facet(ov_object* object, const char* interface_name, ov_object** facet);

/** A pointer that is the same for all handles of one object, whatever its interface, while the object lives; null for
 *  Nothing. Not to be followed. */
int32_t ov_identity(ov_object* object, const void** identity);

/** The name of the object's class, such as "CBase_Module", as an OV_STRING. */
int32_t ov_class_name(ov_object* object, ov_value* name);

/** The name of the interface through which the handle sees its object, such as "_IBase_GuiModule"; null for an object
 *  whose members are its own affair. Valid for ever; one pointer for one interface. */
int32_t ov_interface_name(ov_object* object, const char** name);

/** The members of that interface, one form at each @p index from 0 on. @returns 9 behind the last one */
int32_t ov_member(ov_object* object, size_t index, ov_member_info* info);

/** A walk over the items of a collection, for ov_next. @returns 451 if @p collection is none */
int32_t ov_enumerate(ov_object* collection, ov_object** enumerator);

/** The next item. @p found is set to 1, or to 0 at the end. */
int32_t ov_next(ov_object* enumerator, ov_value* item, int32_t* found);

/** An object whose operations are functions of the host: a listener for "RegisterCallback", a sink for "Advise" of the
 *  interface IEventSource, a service for "RegisterImExport".
 *
 *  While a listener of the same @p entries (as a pointer) and @p context lives, that same object is given again, so
 *  that "UnregisterCallback" takes off what "RegisterCallback" was given.
 *  @param entries @p count of them, which must outlive the listener
 *  @param context handed to each operation
 *  @param release called with @p context when the listener ends; may be null. Must not raise. */
int32_t ov_make_listener(const ov_listener_entry* entries, size_t count, void* context, void (*release)(void* context),
                         ov_object** listener);

/** Says what the error is that a listener's operation is about to return. Null texts are the standard ones.
 *  @returns @p number, 51 for 0 */
int32_t ov_raise(int32_t number, const char* source, const char* description);

/** One more owner of a handle, which then needs one more ov_release. */
int32_t ov_retain(ov_object* object);

/** Ends one ownership of a handle; of a null pointer nothing. */
int32_t ov_release(ov_object* object);

/** Frees what a value owns and leaves it empty. Of a null pointer nothing. */
void ov_clear(ov_value* value);

/** A copy of @p from that owns all that it holds. */
int32_t ov_copy(const ov_value* from, ov_value* to);

/** The error of the last call that failed; number 0 before there is one. The texts are valid until the next failure. */
void ov_last_error(ov_error* error);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif
