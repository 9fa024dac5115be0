/* unitlib: units of measure for construction, CAD and BIM programs. The C interface.
 *
 * This header is all that a host needs; it is C99, and C++ reads it as well. The library is one file with
 * nothing but the functions below exported: unitlib.dll on Windows (dialogs included), libunitlib_c.so.0 on
 * Linux (without the dialogs, so without a window toolkit) or libunitlib_c_ui.so.0 (the same functions, with
 * the dialogs). A process uses one of them.
 *
 *   char text[64];
 *   ul_initial_unit_system_u8("project.xml", UL_TO_NUL, UL_US_IMPERIAL, 0);
 *   ul_store_to_display_u8(0, 1676.4, UL_BASE_SCALE, 0, text, 64, NULL);       // 5' 6"
 *
 * RULES OF EVERY FUNCTION
 *
 * Status     Every function returns a ul_status. UL_OK is 0; after any other status ul_last_error tells more.
 *            No exception leaves the library and no argument crashes it, except a pointer that is neither
 *            null nor valid.
 *
 * Results    come through pointers. They are written only when the status is UL_OK (or UL_ITEMS_FAILED);
 *            after any other status they are as they were, except *needed (see Text out). A null result
 *            pointer is UL_ERROR_ARGUMENT unless the function says that it may be null.
 *
 * Text in    is a pointer and a length in units (16-bit units of UTF-16, bytes of UTF-8), or UL_TO_NUL (-1)
 *            for a text that ends with a zero. A null pointer is the empty text with length 0, and else
 *            UL_ERROR_ARGUMENT. The library keeps no pointer past the call. UTF-8 that is not well-formed is
 *            UL_ERROR_ENCODING; a lone surrogate in UTF-16 is taken as a character that matches nothing.
 *
 * Text out   goes into the caller's buffer. *needed receives the units that the buffer must hold, the closing
 *            zero included; needed may be null. A result always ends with a zero, so the length of the text
 *            is *needed - 1. When the capacity does not suffice, the status is UL_BUFFER_TOO_SMALL and not
 *            one unit is written; a null buffer with capacity 0 asks for the size. After another failure
 *            *needed is 0. Buffers may overlap the texts handed in.
 *
 * UTF-8      A function with texts has a twin with the ending _u8 that takes and gives UTF-8 and is the same
 *            in all else. Only the UTF-16 form is described.
 *
 * Booleans   are int32_t: 0 is no, anything else handed in is yes, and yes handed out is 1.
 *
 * Positions  in lists count from 0. There are no handles: an item of the settings is named by its position,
 *            which after another load may name another item or none (UL_ERROR_INDEX), never freed memory.
 *
 * Numbers    are IEEE doubles; number texts have "." whatever the locale. Results do not depend on the host's
 *            floating-point state (precision, rounding, traps), which every call leaves as it was; callbacks
 *            run in the host's own.
 *
 * Threads    The library has none of its own and locks nothing: the settings are one per process.
 *            Conversions, expressions and readers may run on several threads at once as long as nobody loads,
 *            frees or changes settings, folders, parsers or listeners meanwhile. ul_last_error answers for
 *            the calling thread.
 *
 * Binary     Names are undecorated, the calling convention is C's (cdecl on x86), sizes are those of the
 *            fixed-size types, and structures stay as they are: what is new comes as a new function.
 */
#ifndef UNITLIB_H
#define UNITLIB_H

#include <stdint.h>

/* Calling convention of the functions and of the callbacks: cdecl, also where a host's compiler has another
 * default. */
#if defined(_WIN32) && (defined(__GNUC__) || defined(_MSC_VER))
#define UL_CALL __cdecl
#else
#define UL_CALL
#endif

/* UL_NO_IMPORT: for a host on Windows that takes the functions by GetProcAddress or links them statically. */
#if defined(UL_BUILDING_LIBRARY) && !defined(_WIN32)
#define UL_API __attribute__((visibility("default")))
#elif defined(_WIN32) && !defined(UL_BUILDING_LIBRARY) && !defined(UL_NO_IMPORT)
#define UL_API __declspec(dllimport)
#else
#define UL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Types and constants ------------------------------------------------------------------------------- */

/* One unit of UTF-16, 16 bits wide. A host may define UL_CHAR16 as its own 16-bit type before the include. */
#if defined(UL_CHAR16)
typedef UL_CHAR16 ul_char16;
#elif defined(__cplusplus)
typedef char16_t ul_char16;
#elif defined(_WIN32)
typedef wchar_t ul_char16; /* L"..." fits */
#else
typedef uint16_t ul_char16;
#endif

typedef int32_t ul_status;
enum {
  UL_OK = 0,
  UL_BUFFER_TOO_SMALL = 1,     /* nothing written; *needed tells the capacity it takes */
  UL_ITEMS_FAILED = 2,         /* a column was converted, some items of it failed: see the items' statuses */
  UL_NOT_FOUND = 3,            /* no item with this description; nothing was changed */
  UL_ERROR_ARGUMENT = 4,       /* a null pointer, a negative length, an unknown code, too long a column */
  UL_ERROR_ENCODING = 5,       /* a text in UTF-8 that is not well-formed */
  UL_ERROR_NOT_LOADED = 6,     /* no settings are loaded */
  UL_ERROR_INDEX = 7,          /* a position outside its list, or a measure that does not exist */
  UL_ERROR_CONVERT = 8,        /* a text that cannot be read as a value; a unit without a parser */
  UL_ERROR_RANGE = 9,          /* a number that is not finite, or too large for its text */
  UL_ERROR_FILE = 10,          /* a file cannot be read, written or replaced */
  UL_ERROR_XML = 11,           /* the content of a settings file is wrong */
  UL_ERROR_EXPRESSION = 12,    /* an arithmetic text is wrong */
  UL_ERROR_NOT_AVAILABLE = 13, /* this build has no dialogs, or there is no window system */
  UL_ERROR_MEMORY = 14,
  UL_ERROR_UNEXPECTED = 15 /* an exception of a listener or callback, or one that should not happen */
};

enum { UL_TO_NUL = -1 };  /* as a length: the text ends with a zero */
enum { UL_CURRENT = -1 }; /* as a position: the current configuration, unit, round, symbol or digit group */

/* The unit system a host asks for: the position of the configuration in the default file. */
enum {
  UL_US_IMPERIAL = 0,     /* "US Imperial System" */
  UL_UK_IMPERIAL = 1,     /* "UK Imperial System" */
  UL_STANDARD_METRIC = 2, /* "Standard Metric System" */
  UL_TAIWAN_METRIC = 3,   /* "Taiwan Metric System" */
  UL_IN_METRIC = 4        /* none in the default file */
};

/* Scale index: the store unit of a value. Any other index is the base unit too. */
enum {
  UL_BASE_SCALE = -1,    /* mm, mm2, mm3, kg, kg/m3, m3/m, ... */
  UL_THOUSAND_SCALE = 3, /* a thousand of it: metres */
  UL_MILLION_SCALE = 4,  /* a million: square metres */
  UL_MILLIARD_SCALE = 5  /* a thousand million: cubic metres */
};

enum { UL_NO_MEASURE = -1 }; /* ul_store_to_display: the number itself */

/* Flags of the conversions to text (any sum of them) ... */
enum {
  UL_APPEND_SYMBOL = 1,  /* a blank and the unit's symbol where the unit shows none by itself */
  UL_NO_SYMBOL = 2,      /* without the unit symbol */
  UL_NO_DIGIT_GROUP = 4, /* without digit grouping */
  UL_NO_ROUND = 8,       /* unrounded */
  UL_NO_PLUS_SIGN = 16   /* no "+", even when the unit asks for it */
};
/* ... and of those from text. */
enum { UL_UNCHECKED = 1 };

/* The last failed call of a thread. 16 bytes. */
typedef struct ul_error {
  int32_t code;     /* its status; UL_OK when none has failed */
  int32_t line;     /* line of the settings file, from 1; 0: not about a line */
  int32_t position; /* place of the fault in an arithmetic text, in UTF-16 units from 0; -1: not known */
  int32_t item;     /* first failed item of a column, from 0; -1: not about a column */
} ul_error;

/* part of ul_last_error_text */
enum {
  UL_LAST_MESSAGE = 0,  /* a sentence, the offending text included */
  UL_LAST_PATH = 1,     /* path of the file */
  UL_LAST_TEXT = 2,     /* the offending text alone, or the system's cause of a file error */
  UL_LAST_ELEMENT = 3,  /* the element of the settings file */
  UL_LAST_ATTRIBUTE = 4 /* its attribute */
};

/* ---- Library and errors -------------------------------------------------------------------------------- */

/* Version of the library. */
UL_API ul_status UL_CALL ul_version(int32_t* major, int32_t* minor, int32_t* patch);

/* The last call on this thread that returned something else than UL_OK; a call that succeeds leaves it alone,
 * and so do these three. The texts are empty where they do not apply. */
UL_API ul_status UL_CALL ul_last_error(ul_error* error);
UL_API ul_status UL_CALL ul_last_error_text(int32_t part, ul_char16* buffer, int32_t capacity,
                                            int32_t* needed);
UL_API ul_status UL_CALL ul_last_error_text_u8(int32_t part, char* buffer, int32_t capacity, int32_t* needed);

/* ---- Settings: load, save, free ------------------------------------------------------------------------ */

/* InitialUnitSystem: loads the project's settings from a file (empty: "UnitConfig.xml" in the folder of the
 * host's program) and chooses the configuration: the file's own choice, or config_type where it has none; in
 * that case, and when save is set, the working copy "SysUnit.xml" is written into the folder that
 * ul_get_temp_path_for_unit tells. Call it before any conversion, and again for another file.
 * After a failure what was read before it is loaded; load again or free.
 * errors: UL_ERROR_FILE, UL_ERROR_XML (with line, element, attribute), UL_ERROR_ARGUMENT (config_type). */
UL_API ul_status UL_CALL ul_initial_unit_system(const ul_char16* file, int32_t length, int32_t config_type,
                                                int32_t save);
UL_API ul_status UL_CALL ul_initial_unit_system_u8(const char* file, int32_t length, int32_t config_type,
                                                   int32_t save);

/* InitSystemUnit: loads the report's settings, which are current from then on. Chooses no configuration:
 * where the file has none, call ul_set_cur_config_index. */
UL_API ul_status UL_CALL ul_init_system_unit(const ul_char16* file, int32_t length);
UL_API ul_status UL_CALL ul_init_system_unit_u8(const char* file, int32_t length);

/* FreeUnitSystem: frees all settings. Conversions then return UL_ERROR_NOT_LOADED. Freeing twice is fine. */
UL_API ul_status UL_CALL ul_free_unit_system(void);
UL_API ul_status UL_CALL ul_is_loaded(int32_t* loaded);

/* GenerateUnitDefaultConfigFile: writes the factory settings (empty name: "UnitConfig.xml" in the folder of
 * the host's program), replacing a file that is there. */
UL_API ul_status UL_CALL ul_generate_default_config_file(const ul_char16* file, int32_t length);
UL_API ul_status UL_CALL ul_generate_default_config_file_u8(const char* file, int32_t length);

/* SaveConfigFile: writes the current settings (empty name: the file loaded last). The file is replaced as a
 * whole or not at all. Refused while the last load has failed. */
UL_API ul_status UL_CALL ul_save_config_file(const ul_char16* file, int32_t length);
UL_API ul_status UL_CALL ul_save_config_file_u8(const char* file, int32_t length);

/* SavetoModel: writes the working copy. */
UL_API ul_status UL_CALL ul_save_to_model(void);

/* GetUnitConfigFileName: the file loaded last. */
UL_API ul_status UL_CALL ul_get_unit_config_file_name(ul_char16* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_unit_config_file_name_u8(char* buffer, int32_t capacity, int32_t* needed);

/* GetTempPathForUnit: folder of the working copy, with closing delimiter. It need not exist. */
UL_API ul_status UL_CALL ul_get_temp_path_for_unit(ul_char16* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_temp_path_for_unit_u8(char* buffer, int32_t capacity, int32_t* needed);

/* Folder of the host's program and documents folder of all users, where the default file and the working copy
 * lie. A host may put its own in their place; an empty path brings the system's back. */
UL_API ul_status UL_CALL ul_get_exe_path(ul_char16* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_exe_path_u8(char* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_set_exe_path(const ul_char16* path, int32_t length);
UL_API ul_status UL_CALL ul_set_exe_path_u8(const char* path, int32_t length);
UL_API ul_status UL_CALL ul_get_common_documents_path(ul_char16* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_common_documents_path_u8(char* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_set_common_documents_path(const ul_char16* path, int32_t length);
UL_API ul_status UL_CALL ul_set_common_documents_path_u8(const char* path, int32_t length);

/* ---- Texts of the dialogs ------------------------------------------------------------------------------ */

/* LoadTextTable: takes the captions and prompts of the dialogs from a file in UTF-8 with lines "key = text"
 * (examples/texts); what it does not have stays English. An empty name: all English again. After an error
 * nothing has changed. Descriptions of the settings file and the messages of errors are no such texts.
 * errors: UL_ERROR_FILE; UL_ERROR_CONVERT a line is wrong (the message begins with file and line). */
UL_API ul_status UL_CALL ul_load_texts(const ul_char16* file, int32_t length);
UL_API ul_status UL_CALL ul_load_texts_u8(const char* file, int32_t length);

/* SetUserText: replaces the text of one key, such as "dialog.cancel"; an empty text is English again.
 * errors: UL_ERROR_ARGUMENT the key is empty. */
UL_API ul_status UL_CALL ul_set_text(const ul_char16* key, int32_t key_length, const ul_char16* text,
                                     int32_t length);
UL_API ul_status UL_CALL ul_set_text_u8(const char* key, int32_t key_length, const char* text,
                                        int32_t length);

/* ---- Conversions --------------------------------------------------------------------------------------- */

/* measure  the classify code of a measure of the current configuration; in the default file 0 length,
 *          7 length (calculation result), 3 elevation, 1 area, 2 volume, 6 mass, 4 density, 5 volume per
 *          length. An unknown one is UL_ERROR_INDEX, and so is a measure that has no current unit.
 * scale    the store unit of the value, UL_BASE_SCALE for most.
 * errors of every conversion:
 *          UL_ERROR_NOT_LOADED; UL_ERROR_INDEX; UL_ERROR_CONVERT when no parser is registered for the
 *          measure's current unit. */

/* StoreToDisplay: text of a stored value in the measure's current unit, as its settings say. Values within
 * 1E-12 of zero are shown as 0. Measure UL_NO_MEASURE: the number itself, with five decimals when it has more
 * than two.
 * errors: UL_ERROR_RANGE the value is not finite or too large; UL_ERROR_CONVERT the rounding increment is no
 *         number; UL_ERROR_ARGUMENT an unknown flag. */
UL_API ul_status UL_CALL ul_store_to_display(int32_t measure, double value, int32_t scale, uint32_t flags,
                                             ul_char16* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_store_to_display_u8(int32_t measure, double value, int32_t scale, uint32_t flags,
                                                char* buffer, int32_t capacity, int32_t* needed);

/* StoreToDisplay, the form that tells whether the unit shows a symbol by itself. Measure UL_NO_MEASURE: the
 * number as it is, however many decimals it has, and *has_symbol is left alone. */
UL_API ul_status UL_CALL ul_store_to_display_symbol(int32_t* has_symbol, int32_t measure, double value,
                                                    int32_t scale, uint32_t flags, ul_char16* buffer,
                                                    int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_store_to_display_symbol_u8(int32_t* has_symbol, int32_t measure, double value,
                                                       int32_t scale, uint32_t flags, char* buffer,
                                                       int32_t capacity, int32_t* needed);

/* CheckDisplay: whether a text can be read as a value of the measure. A unit without parser reads none. */
UL_API ul_status UL_CALL ul_check_display(int32_t measure, const ul_char16* text, int32_t length,
                                          int32_t* valid);
UL_API ul_status UL_CALL ul_check_display_u8(int32_t measure, const char* text, int32_t length,
                                             int32_t* valid);

/* DisplayToStore: the stored value of a text. A text that ul_check_display refuses is UL_ERROR_CONVERT.
 * UL_UNCHECKED skips that test, for a host that has made it: the decimal units then read numbers of any size,
 * and the units in feet and inches give a number for any text, 0 for most.
 * errors: UL_ERROR_CONVERT; UL_ERROR_RANGE the value is not finite; UL_ERROR_ARGUMENT an unknown flag. */
UL_API ul_status UL_CALL ul_display_to_store(int32_t measure, const ul_char16* text, int32_t length,
                                             int32_t scale, uint32_t flags, double* value);
UL_API ul_status UL_CALL ul_display_to_store_u8(int32_t measure, const char* text, int32_t length,
                                                int32_t scale, uint32_t flags, double* value);

/* DecimalValueToStore: the stored value of a decimal number in the current unit; with feet and fractional
 * inches the number counts feet. errors: UL_ERROR_RANGE number or result is not finite. */
UL_API ul_status UL_CALL ul_decimal_value_to_store(int32_t measure, double number, int32_t scale,
                                                   double* value);

/* IsANum: whether a text, without the unit's symbol, is a number or an imperial length. reject_fraction_form
 * refuses the plain forms 1-1/2, 3-4 and 3/4, which an expression field reads as arithmetic. */
UL_API ul_status UL_CALL ul_is_a_num(int32_t measure, const ul_char16* text, int32_t length,
                                     int32_t reject_fraction_form, int32_t* is_number);
UL_API ul_status UL_CALL ul_is_a_num_u8(int32_t measure, const char* text, int32_t length,
                                        int32_t reject_fraction_form, int32_t* is_number);

/* ExprToStore: an arithmetic text with every imperial number in it replaced by a plain number in the current
 * unit: with unit metres 3'6"+2 becomes 1.0668+2. Measures other than 0, 3 and 7 leave it unchanged.
 * skip_imperial_num: a text that is one imperial number as a whole stays. */
UL_API ul_status UL_CALL ul_expr_to_store(int32_t measure, const ul_char16* text, int32_t length,
                                          int32_t skip_imperial_num, ul_char16* buffer, int32_t capacity,
                                          int32_t* needed);
UL_API ul_status UL_CALL ul_expr_to_store_u8(int32_t measure, const char* text, int32_t length,
                                             int32_t skip_imperial_num, char* buffer, int32_t capacity,
                                             int32_t* needed);

/* GetUnitSymbol: the chosen symbol, or, where that is "None", the unit's own; for feet and fractional inches
 * an empty text then when empty_for_feet_inch is set. */
UL_API ul_status UL_CALL ul_get_unit_symbol(int32_t measure, int32_t empty_for_feet_inch, ul_char16* buffer,
                                            int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_unit_symbol_u8(int32_t measure, int32_t empty_for_feet_inch, char* buffer,
                                               int32_t capacity, int32_t* needed);

/* GetDisplayValue: a text without "[" and "]". Needs no settings. */
UL_API ul_status UL_CALL ul_get_display_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                              int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_display_value_u8(const char* text, int32_t length, char* buffer,
                                                 int32_t capacity, int32_t* needed);

/* ---- Columns: many values in one call ------------------------------------------------------------------ */

/* texts    A column of texts is one buffer that holds them one behind the other, without closing zeros.
 * offsets  count + 1 positions in that buffer: text i is the units from offsets[i] up to offsets[i + 1].
 *          offsets[0] may be other than 0; an offset that is negative or below the one before it is
 *          UL_ERROR_ARGUMENT.
 * statuses one per item, or null. An item that fails does not end the call: it has its status there and an
 *          empty text or, as a value, NaN; the call returns UL_ITEMS_FAILED, and ul_last_error tells about
 *          the first failed item. With statuses null, the call returns the status of the first failed item
 *          instead and writes nothing.
 * count    0 is fine (offsets[0] is then all that is written), a negative one UL_ERROR_ARGUMENT. */

/* ul_store_to_display for every value. *needed: units of all the texts (no closing zeros here), also when the
 * buffer is too small, in which case nothing is written, offsets and statuses neither. */
UL_API ul_status UL_CALL ul_store_to_display_column(int32_t measure, const double* values, int32_t count,
                                                    int32_t scale, uint32_t flags, ul_char16* buffer,
                                                    int32_t capacity, int32_t* needed, int32_t* offsets,
                                                    ul_status* statuses);
UL_API ul_status UL_CALL ul_store_to_display_column_u8(int32_t measure, const double* values, int32_t count,
                                                       int32_t scale, uint32_t flags, char* buffer,
                                                       int32_t capacity, int32_t* needed, int32_t* offsets,
                                                       ul_status* statuses);

/* ul_display_to_store for every text. */
UL_API ul_status UL_CALL ul_display_to_store_column(int32_t measure, const ul_char16* texts,
                                                    const int32_t* offsets, int32_t count, int32_t scale,
                                                    uint32_t flags, double* values, ul_status* statuses);
UL_API ul_status UL_CALL ul_display_to_store_column_u8(int32_t measure, const char* texts,
                                                       const int32_t* offsets, int32_t count, int32_t scale,
                                                       uint32_t flags, double* values, ul_status* statuses);

/* ul_evaluate for every text; is_imperial (count entries) may be null. */
UL_API ul_status UL_CALL ul_evaluate_column(const ul_char16* texts, const int32_t* offsets, int32_t count,
                                            double* values, int32_t* is_imperial, ul_status* statuses);
UL_API ul_status UL_CALL ul_evaluate_column_u8(const char* texts, const int32_t* offsets, int32_t count,
                                               double* values, int32_t* is_imperial, ul_status* statuses);

/* ul_expression_to_store for every text. */
UL_API ul_status UL_CALL ul_expression_to_store_column(int32_t measure, const ul_char16* texts,
                                                       const int32_t* offsets, int32_t count, int32_t scale,
                                                       double* values, ul_status* statuses);
UL_API ul_status UL_CALL ul_expression_to_store_column_u8(int32_t measure, const char* texts,
                                                          const int32_t* offsets, int32_t count,
                                                          int32_t scale, double* values, ul_status* statuses);

/* ---- Expressions and elevations ------------------------------------------------------------------------ */

/* Arithmetic with + - * / and brackets over numbers and, while measure 3 is shown in feet or inches, imperial
 * lengths. Imperial lengths are read in metres: 5'6"*2 is 3.3528 with *is_imperial 1; 2*(3+4) is 14 with
 * *is_imperial 0. is_imperial may be null.
 * errors: UL_ERROR_EXPRESSION with message and position; an empty text and one with a variable have no value.
 *         UL_ERROR_INDEX there is no measure 3. */
UL_API ul_status UL_CALL ul_evaluate(const ul_char16* text, int32_t length, double* value,
                                     int32_t* is_imperial);
UL_API ul_status UL_CALL ul_evaluate_u8(const char* text, int32_t length, double* value,
                                        int32_t* is_imperial);

/* The stored value of arithmetic typed into a field of a measure: ul_expr_to_store, the value of the result,
 * ul_decimal_value_to_store. Plain numbers count the measure's current unit (feet, for feet and fractional
 * inches), imperial ones are what they are: with decimal feet 5'6"+2 is 7.5 feet, 2286.
 * errors: as ul_evaluate; UL_ERROR_EXPRESSION also for imperial numbers in a measure that is no length. */
UL_API ul_status UL_CALL ul_expression_to_store(int32_t measure, const ul_char16* text, int32_t length,
                                                int32_t scale, double* value);
UL_API ul_status UL_CALL ul_expression_to_store_u8(int32_t measure, const char* text, int32_t length,
                                                   int32_t scale, double* value);

/* GetElevStoreValue, GetElevEditValue, GetElevDisplayValue: an elevation (a value, or a short expression
 * around one name) in store form, as an edit field shows it, and as a cell shows it. A text that is no
 * elevation comes back unchanged, so ask ul_check_elev_edit_value first. */
UL_API ul_status UL_CALL ul_get_elev_store_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                                 int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_elev_store_value_u8(const char* text, int32_t length, char* buffer,
                                                    int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_elev_edit_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                                int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_elev_edit_value_u8(const char* text, int32_t length, char* buffer,
                                                   int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_elev_display_value(const ul_char16* text, int32_t length, ul_char16* buffer,
                                                   int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_elev_display_value_u8(const char* text, int32_t length, char* buffer,
                                                      int32_t capacity, int32_t* needed);
/* CheckElevEditValue: whether a text is an acceptable elevation. */
UL_API ul_status UL_CALL ul_check_elev_edit_value(const ul_char16* text, int32_t length, int32_t* valid);
UL_API ul_status UL_CALL ul_check_elev_edit_value_u8(const char* text, int32_t length, int32_t* valid);

/* ---- Texts as people type them ---------------------------------------------------------------------------
 */

/* flags of ul_read_typed and ul_get_typed_text, to be joined by | */
enum {
  UL_TYPED_EXPRESSION = 1,    /* arithmetic, in which a dash may take away; without: one value */
  UL_TYPED_DECIMAL_COMMA = 2, /* 2,5 is two and a half */
  UL_TYPED_GERMAN = 16,       /* read unit words of this language beside the English ones */
  UL_TYPED_FRENCH = 32,
  UL_TYPED_SPANISH = 64,
  UL_TYPED_CHINESE = 128
};

/* problem of ul_typed_info: why a text was refused */
enum {
  UL_TYPED_ACCEPTED = 0,
  UL_TYPED_EMPTY = 1,
  UL_TYPED_AMBIGUOUS = 2,      /* two readings, both suggested */
  UL_TYPED_MISSING_MARK = 3,   /* feet or inches? */
  UL_TYPED_OTHER_QUANTITY = 4, /* a unit of another quantity */
  UL_TYPED_UNKNOWN_UNIT = 5,
  UL_TYPED_NOT_A_NUMBER = 6,
  UL_TYPED_BAD_FRACTION = 7,
  UL_TYPED_BAD_ORDER = 8, /* inches before feet, a unit twice */
  UL_TYPED_BAD_ARITHMETIC = 9,
  UL_TYPED_BAD_NAME = 10,
  UL_TYPED_OUT_OF_RANGE = 11,
  UL_TYPED_TOO_LONG = 12, /* more than 1,000 units */
  UL_TYPED_NO_FIELD = 13  /* the measure has no unit to read values in */
};

typedef struct ul_typed_info { /* 20 bytes */
  int32_t problem;             /* UL_TYPED_ACCEPTED, or why it was refused */
  int32_t has_value;           /* 0: refused, or an expression with a name, which has none */
  int32_t position;            /* where a refused text went wrong, in UTF-16 units from 0; -1: accepted */
  int32_t suggestions;         /* texts to type instead */
  int32_t steps;               /* of the reading, to explain it */
} ul_typed_info;

/* The stored value of a text as people type it: all that ul_display_to_store reads, with the same value, and
 * the spellings of the trade: 10'-6", 6-1/2", 10 ft 6 in, 2.5 m in a field of feet. A text with two readings
 * is refused. A refused text is UL_OK with a problem in *info, and *value is NaN, as with a name in it.
 * errors: UL_ERROR_ARGUMENT an unknown flag; as ul_display_to_store for the measure. */
UL_API ul_status UL_CALL ul_read_typed(int32_t measure, const ul_char16* text, int32_t length, int32_t scale,
                                       uint32_t flags, double* value, ul_typed_info* info);
UL_API ul_status UL_CALL ul_read_typed_u8(int32_t measure, const char* text, int32_t length, int32_t scale,
                                          uint32_t flags, double* value, ul_typed_info* info);

/* part of ul_get_typed_text */
enum {
  UL_TYPED_REWRITTEN =
      0, /* the text as ul_display_to_store, or for expressions ul_get_elev_store_value, reads it */
  UL_TYPED_UNDERSTOOD = 1, /* "10 feet 6 inches, dash read as a separator" */
  UL_TYPED_REASON = 2,     /* why it was refused */
  UL_TYPED_SUGGESTION = 3, /* number index of the suggestions */
  UL_TYPED_STEP_NAME = 4,  /* "feet", of step number index */
  UL_TYPED_STEP_TEXT = 5   /* "10" */
};

/* The texts of a reading; the text is read anew. index counts suggestions and steps, other parts do not use
 * it. errors: UL_ERROR_INDEX no such suggestion or step; as ul_read_typed. */
UL_API ul_status UL_CALL ul_get_typed_text(int32_t measure, const ul_char16* text, int32_t length,
                                           uint32_t flags, int32_t part, int32_t index, ul_char16* buffer,
                                           int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_typed_text_u8(int32_t measure, const char* text, int32_t length,
                                              uint32_t flags, int32_t part, int32_t index, char* buffer,
                                              int32_t capacity, int32_t* needed);

/* ---- The settings: reading ----------------------------------------------------------------------------- */

/* The settings are a tree: configurations, their measures, the units of a measure, the rounds and symbols of
 * a unit; and a list of digit groups. Everything below takes positions; config, unit, round, symbol and group
 * may be UL_CURRENT. ul_find_measure turns a classify code into a position.
 * errors of all: UL_ERROR_NOT_LOADED; UL_ERROR_INDEX a position outside its list, or nothing chosen. */

typedef struct ul_config_info { /* 8 bytes */
  int32_t order_index;
  int32_t measure_count;
} ul_config_info;

typedef struct ul_measure_info { /* 20 bytes */
  int32_t classify_code;
  int32_t order_index;
  int32_t unit_count;
  int32_t def_unit_index;
  int32_t cur_unit_index; /* -1: the measure has no current unit */
} ul_measure_info;

typedef struct ul_unit_info { /* 32 bytes */
  int32_t identify_code;
  int32_t order_index;
  int32_t round_count;
  int32_t def_round_index;
  int32_t cur_round_index;
  int32_t symbol_count;
  int32_t def_symbol_index;
  int32_t cur_symbol_index;
} ul_unit_info;

typedef struct ul_round_info { /* 12 bytes */
  int32_t order_index;
  int32_t increment_can_edit;    /* the user may type an increment of his own */
  int32_t increment_can_visible; /* the increment is shown */
} ul_round_info;

typedef struct ul_switch_info { /* 16 bytes */
  int32_t def_enable;
  int32_t enable; /* the user may tick it */
  int32_t def_checked;
  int32_t checked;
} ul_switch_info;

/* The six format switches of a unit. */
enum {
  UL_USE_PROJECT_SETTING = 0,
  UL_SUPPRESS_TRAIL_0 = 1, /* no trailing zeros behind the decimal point */
  UL_SUPPRESS_0_FEET = 2,  /* no feet part when it is 0 */
  UL_SHOW_PLUS_FOR_POS_VALUE = 3,
  UL_USE_DIGIT_GROUP = 4,
  UL_SUPPRESS_SPACE = 5 /* no blank behind the foot mark */
};

UL_API ul_status UL_CALL ul_get_config_count(int32_t* count);
/* The stored position of the current configuration: -1 while none is chosen; it may lie outside the list. */
UL_API ul_status UL_CALL ul_get_cur_config_index(int32_t* index);
UL_API ul_status UL_CALL ul_get_config(int32_t config, ul_config_info* info);
UL_API ul_status UL_CALL ul_get_config_description(int32_t config, ul_char16* buffer, int32_t capacity,
                                                   int32_t* needed);
UL_API ul_status UL_CALL ul_get_config_description_u8(int32_t config, char* buffer, int32_t capacity,
                                                      int32_t* needed);

/* Position of the first measure with this classify code, or, by order index, with this order index.
 * UL_NOT_FOUND: there is none. */
UL_API ul_status UL_CALL ul_find_measure(int32_t config, int32_t classify_code, int32_t* measure);
UL_API ul_status UL_CALL ul_find_measure_by_order_index(int32_t config, int32_t order_index,
                                                        int32_t* measure);
UL_API ul_status UL_CALL ul_get_measure(int32_t config, int32_t measure, ul_measure_info* info);
/* part of ul_get_measure_text */
enum {
  UL_MEASURE_DESCRIPTION = 0,
  UL_MEASURE_EXAMPLE_VALUE = 1,        /* a sample value in the base unit */
  UL_MEASURE_EXAMPLE_DISPLAY_VALUE = 2 /* the same as shown; see ul_update_display_values */
};
UL_API ul_status UL_CALL ul_get_measure_text(int32_t config, int32_t measure, int32_t part, ul_char16* buffer,
                                             int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_measure_text_u8(int32_t config, int32_t measure, int32_t part, char* buffer,
                                                int32_t capacity, int32_t* needed);

UL_API ul_status UL_CALL ul_get_unit(int32_t config, int32_t measure, int32_t unit, ul_unit_info* info);
/* part of ul_get_unit_text */
enum {
  UL_UNIT_DESCRIPTION = 0,
  UL_UNIT_SYMBOL_WHEN_NONE = 1, /* the symbol to show when the chosen one is "None" */
  UL_UNIT_PARSER_CLASS_NAME = 2,
  UL_UNIT_CUR_SYMBOL = 3,   /* the current symbol; empty when its position is outside the list */
  UL_UNIT_DEF_CHARACTER = 4 /* GetDefUnitCharacter: " [SF]" while the current symbol is "None" */
};
UL_API ul_status UL_CALL ul_get_unit_text(int32_t config, int32_t measure, int32_t unit, int32_t part,
                                          ul_char16* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_unit_text_u8(int32_t config, int32_t measure, int32_t unit, int32_t part,
                                             char* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_switch(int32_t config, int32_t measure, int32_t unit, int32_t which,
                                       ul_switch_info* info);

UL_API ul_status UL_CALL ul_get_round(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                      ul_round_info* info);
enum { UL_ROUND_DESCRIPTION = 0, UL_ROUND_INCREMENT = 1 }; /* part of ul_get_round_text */
UL_API ul_status UL_CALL ul_get_round_text(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                           int32_t part, ul_char16* buffer, int32_t capacity,
                                           int32_t* needed);
UL_API ul_status UL_CALL ul_get_round_text_u8(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                              int32_t part, char* buffer, int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_symbol(int32_t config, int32_t measure, int32_t unit, int32_t symbol,
                                       int32_t* order_index);
UL_API ul_status UL_CALL ul_get_symbol_description(int32_t config, int32_t measure, int32_t unit,
                                                   int32_t symbol, ul_char16* buffer, int32_t capacity,
                                                   int32_t* needed);
UL_API ul_status UL_CALL ul_get_symbol_description_u8(int32_t config, int32_t measure, int32_t unit,
                                                      int32_t symbol, char* buffer, int32_t capacity,
                                                      int32_t* needed);

UL_API ul_status UL_CALL ul_get_digit_group_count(int32_t* count);
UL_API ul_status UL_CALL ul_get_cur_digit_group_index(int32_t* index);
UL_API ul_status UL_CALL ul_get_digit_group(int32_t group, int32_t* order_index);
enum {
  UL_DIGIT_GROUP_DESCRIPTION = 0,
  UL_DIGIT_GROUP_PARSER_CLASS_NAME = 1
}; /* part of ul_get_digit_group_text */
UL_API ul_status UL_CALL ul_get_digit_group_text(int32_t group, int32_t part, ul_char16* buffer,
                                                 int32_t capacity, int32_t* needed);
UL_API ul_status UL_CALL ul_get_digit_group_text_u8(int32_t group, int32_t part, char* buffer,
                                                    int32_t capacity, int32_t* needed);

/* ---- The settings: changing ---------------------------------------------------------------------------- */

/* Changes take effect at the next conversion and last until the next load; ul_save_config_file keeps them.
 * Listeners are not called: see ul_refresh_unit. A position to be chosen must lie in its list. */

UL_API ul_status UL_CALL ul_set_cur_config_index(int32_t index);
/* SetCurretnConfigueType: chooses the configuration as ul_initial_unit_system does after loading. */
UL_API ul_status UL_CALL ul_set_config_type(int32_t config_type, int32_t save);
/* ConfigueUnitSystem: makes the configuration of this type current, whether or not the file has it. */
UL_API ul_status UL_CALL ul_configure_unit_system(int32_t config_type);

UL_API ul_status UL_CALL ul_set_cur_unit_index(int32_t config, int32_t measure, int32_t unit);
UL_API ul_status UL_CALL ul_set_cur_round_index(int32_t config, int32_t measure, int32_t unit, int32_t round);
UL_API ul_status UL_CALL ul_set_cur_symbol_index(int32_t config, int32_t measure, int32_t unit,
                                                 int32_t symbol);
UL_API ul_status UL_CALL ul_set_cur_digit_group_index(int32_t index);

/* The same by description: the first item with exactly this one. UL_NOT_FOUND: there is none. */
UL_API ul_status UL_CALL ul_set_cur_unit(int32_t config, int32_t measure, const ul_char16* description,
                                         int32_t length);
UL_API ul_status UL_CALL ul_set_cur_unit_u8(int32_t config, int32_t measure, const char* description,
                                            int32_t length);
UL_API ul_status UL_CALL ul_set_cur_round(int32_t config, int32_t measure, int32_t unit,
                                          const ul_char16* description, int32_t length);
UL_API ul_status UL_CALL ul_set_cur_round_u8(int32_t config, int32_t measure, int32_t unit,
                                             const char* description, int32_t length);
UL_API ul_status UL_CALL ul_set_cur_symbol(int32_t config, int32_t measure, int32_t unit,
                                           const ul_char16* description, int32_t length);
UL_API ul_status UL_CALL ul_set_cur_symbol_u8(int32_t config, int32_t measure, int32_t unit,
                                              const char* description, int32_t length);
UL_API ul_status UL_CALL ul_set_cur_digit_group(const ul_char16* description, int32_t length);
UL_API ul_status UL_CALL ul_set_cur_digit_group_u8(const char* description, int32_t length);

/* SetIncrement: the rounding step of a round as text ("0.01", "1/16", "6"). Not checked here: conversions
 * with an increment that is no number return UL_ERROR_CONVERT. */
UL_API ul_status UL_CALL ul_set_increment(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                          const ul_char16* increment, int32_t length);
UL_API ul_status UL_CALL ul_set_increment_u8(int32_t config, int32_t measure, int32_t unit, int32_t round,
                                             const char* increment, int32_t length);

/* SetCheckBoxSetting: enables and ticks a format switch; its defaults stay. */
UL_API ul_status UL_CALL ul_set_switch(int32_t config, int32_t measure, int32_t unit, int32_t which,
                                       int32_t enable, int32_t checked);

/* RestoreDefault of a unit (switches, round, symbol; increments stay), of a measure (the unit that is current
 * and the default unit, which becomes current; the others stay) and of a configuration (all its measures). */
UL_API ul_status UL_CALL ul_restore_default_unit(int32_t config, int32_t measure, int32_t unit);
UL_API ul_status UL_CALL ul_restore_default_measure(int32_t config, int32_t measure);
UL_API ul_status UL_CALL ul_restore_default_config(int32_t config);
/* RestoreDefaultUnitSystem: restores the current configuration, then makes configuration index current. */
UL_API ul_status UL_CALL ul_restore_default_unit_system(int32_t index);

/* UpdateDispalyValue: recomputes the example display value of every measure of the current configuration. A
 * measure that fails gets an empty text and the others are computed all the same; the first failure is
 * returned. */
UL_API ul_status UL_CALL ul_update_display_values(void);

/* ---- Parsers of the host ------------------------------------------------------------------------------- */

/* RegisterUnitParser: a decimal unit of the host's own, which a settings file names as UnitParserClassName.
 * size: one unit in base units (a surveyor's chain: 20116.8 mm). Register before settings are used; a
 * registration lasts until the library is unloaded.
 * errors: UL_ERROR_ARGUMENT the name is empty or taken (in any letter case), the size not finite or not
 *         above 0. */
UL_API ul_status UL_CALL ul_register_unit_parser(const ul_char16* name, int32_t length, double size);
UL_API ul_status UL_CALL ul_register_unit_parser_u8(const char* name, int32_t length, double size);
/* Whether GetUnitParser finds a parser class of this name (in any letter case). */
UL_API ul_status UL_CALL ul_has_unit_parser(const ul_char16* name, int32_t length, int32_t* present);
UL_API ul_status UL_CALL ul_has_unit_parser_u8(const char* name, int32_t length, int32_t* present);

/* RegisterDigitGroupParser: groups of digits (1 to 9) under a name for DigitGroupParserClassName.
 * errors: as ul_register_unit_parser. */
UL_API ul_status UL_CALL ul_register_digit_group_parser(const ul_char16* name, int32_t length,
                                                        int32_t digits);
UL_API ul_status UL_CALL ul_register_digit_group_parser_u8(const char* name, int32_t length, int32_t digits);
/* An unsigned number text grouped by the digit-group parser of this name; an unknown name groups nothing. */
UL_API ul_status UL_CALL ul_group_digits(const ul_char16* name, int32_t name_length, const ul_char16* text,
                                         int32_t length, ul_char16* buffer, int32_t capacity,
                                         int32_t* needed);
UL_API ul_status UL_CALL ul_group_digits_u8(const char* name, int32_t name_length, const char* text,
                                            int32_t length, char* buffer, int32_t capacity, int32_t* needed);

/* ---- Listeners ----------------------------------------------------------------------------------------- */

/* A listener is a function and a context pointer, compared as a pair: attaching one that is there and
 * detaching one that is not there change nothing. They are called on the thread that fires, in the order of
 * attachment. A listener may attach and detach, convert and change settings. The context is the host's:
 * detach before it goes. */
typedef void(UL_CALL* ul_callback)(void* context);

/* Listeners called after units have changed: the host fires them with ul_refresh_unit when it has applied new
 * settings. */
UL_API ul_status UL_CALL ul_attach_refresh_unit(ul_callback listener, void* context);
UL_API ul_status UL_CALL ul_detach_refresh_unit(ul_callback listener, void* context);
UL_API ul_status UL_CALL ul_refresh_unit(void);
/* Yes while ul_refresh_unit runs; the dialog does not open then. */
UL_API ul_status UL_CALL ul_is_on_refresh_unit(int32_t* running);

/* Listeners called before units change: the dialog fires them before it opens. */
UL_API ul_status UL_CALL ul_attach_before_unit_change(ul_callback listener, void* context);
UL_API ul_status UL_CALL ul_detach_before_unit_change(ul_callback listener, void* context);
UL_API ul_status UL_CALL ul_refresh_before_unit_change(void);

/* ---- Dialog -------------------------------------------------------------------------------------------- */

/* Called with lock 0 right before the library writes or re-reads the settings file and with lock 1 right
 * after, so that a host can give up its own lock on the file. file ends with a zero. The result is not used.
 */
typedef int32_t(UL_CALL* ul_lock_file)(void* context, const ul_char16* file, int32_t length, int32_t lock);
typedef int32_t(UL_CALL* ul_lock_file_u8)(void* context, const char* file, int32_t length, int32_t lock);

enum {
  UL_DIALOG_NOT_OPENED = 0, /* after-change listeners are running, or the dialog is open already */
  UL_DIALOG_OK = 1,         /* the settings were saved and on_ok was called */
  UL_DIALOG_CANCEL = 2      /* the file was loaded again and nothing else changed */
};

UL_API ul_status UL_CALL ul_dialogs_available(int32_t* available);

/* TSystemUnitForm::Execute: the modal dialog "Project Units", owned by the host's active window. Calls the
 * before-change listeners, loads the file (which thus is current afterwards), lets the user edit, and on OK
 * saves and calls on_ok, in which a host calls ul_refresh_unit. Call it on the thread of the user interface.
 * on_ok, lock_file and outcome may be null.
 * errors: UL_ERROR_NOT_AVAILABLE; those of ul_initial_unit_system and ul_save_config_file. */
UL_API ul_status UL_CALL ul_project_units_dialog(int32_t config_type, const ul_char16* file, int32_t length,
                                                 ul_callback on_ok, void* ok_context, ul_lock_file lock_file,
                                                 void* lock_context, int32_t* outcome);
UL_API ul_status UL_CALL ul_project_units_dialog_u8(int32_t config_type, const char* file, int32_t length,
                                                    ul_callback on_ok, void* ok_context,
                                                    ul_lock_file_u8 lock_file, void* lock_context,
                                                    int32_t* outcome);

/* For a host that unloads the library while it goes on: ends what the dialog has started, on the thread that
 * opened it, before unloading. Open no dialog afterwards until the library is loaded again. (On Linux the
 * library with the dialogs stays in the process once it is loaded, as its window toolkit does.) */
UL_API ul_status UL_CALL ul_free_dialogs(void);

#ifdef __cplusplus
}
#endif

#endif /* UNITLIB_H */
