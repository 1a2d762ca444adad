/* SPDX-License-Identifier: MIT */
/**
 * @file
 * The library for programs in other languages than C++: a generator is created, reads a
 * configuration, takes options and writes plug-ins.
 *
 * All texts are UTF-8 and end with a zero byte; a null text counts as an empty one. Texts that are
 * handed out are valid UTF-8 whatever came in. A text that a function returns belongs to the
 * generator and holds until the next call with that generator. A generator that is handed in must
 * not be null unless that is said. No function throws or ends the process.
 *
 * Generators share nothing: each has its own chance and errors, none keeps a log file, and several
 * threads may use one each at the same time. A generator is used by one thread at a time, not
 * always the same one. A run depends on its configuration, options, seed and stamp alone; what was
 * made before it, by this generator or others, changes nothing.
 *
 * While a call is under way, in a progress function for instance, its generator can be used for
 * nothing else: functions with a result answer VAULTRY_BUSY, those with a text null, and the only
 * error is then the one that says so. The call itself is not disturbed. Other generators can be
 * made, used and destroyed.
 *
 * @code{.c}
 * vaultry_generator* generator = vaultry_create();
 * if (generator != NULL && vaultry_init(generator, "vaultry.xml") == VAULTRY_OK &&
 *     vaultry_set(generator, "size", "Small") == VAULTRY_OK &&
 *     vaultry_generate(generator, "dungeon.esp") == VAULTRY_OK) {
 *     printf("seed %lu\n", (unsigned long)vaultry_last_seed(generator));
 * } else if (generator != NULL) {
 *     for (size_t i = 0; i < vaultry_error_count(generator); ++i) {
 *         fprintf(stderr, "%s\n", vaultry_error(generator, i));
 *     }
 * }
 * vaultry_destroy(generator);
 * @endcode
 */
#ifndef VAULTRY_H
#define VAULTRY_H

#include <vaultry/foundation/Export.h>

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/** How a call ended; what was refused, wrong or not written is explained by vaultry_error. */
enum vaultry_result {
    VAULTRY_OK = 0,           /**< done */
    VAULTRY_REFUSED = 1,      /**< no usable configuration, no dungeon as the options want it, or an
                                   internal fault; nothing written */
    VAULTRY_CANCELED = 2,     /**< the progress function or vaultry_cancel asked to stop; nothing
                                   written */
    VAULTRY_NOT_WRITTEN = 3,  /**< generated, but not written whole: an earlier file is as it was */
    VAULTRY_BAD_ARGUMENT = 4, /**< an unknown option, or a value that it does not take */
    VAULTRY_NO_MEMORY = 5,    /**< memory did not suffice for the call */
    VAULTRY_BUSY = 6          /**< another call with the generator is under way; nothing done */
};

/**
 * A generator: a configuration, options, and what the last run came to. It keeps the configuration
 * and the last dungeon in memory until it reads or makes another, or is destroyed; one that is used
 * again and again saves the reading.
 */
typedef struct vaultry_generator vaultry_generator;

/**
 * Called often during a run, so it should be quick. `text` is the step under way and holds during
 * the call, `position` how many of its `steps` (one for each level) are done, `context` what
 * vaultry_set_progress was given. Another answer than 0 cancels the run. The function must not
 * throw. It may use other generators, and ask its own for seed and stamp.
 *
 * It is called on the thread of the run, which waits for it, and while the plug-in is written too.
 * A level that is given up counts no step, and a dungeon that is to be walkable or closed begins
 * again at 0 with each further seed, so that a bar may end early and may go back.
 */
typedef int (*vaultry_progress)(void* context, const char* text, int32_t position, int32_t steps);

/**
 * The version of the library, such as "1.2.3"; it holds for ever. Never null. For a program that
 * was built with one version and finds another when it runs: while the first number is 0, only
 * versions with the same second one fit together.
 */
VAULTRY_API const char* vaultry_version(void);

/**
 * A new generator without a configuration, to be given to vaultry_destroy in the end; null when
 * memory does not suffice. All options have the defaults of their switches.
 */
VAULTRY_API vaultry_generator* vaultry_create(void);
/**
 * Frees a generator and every text that it returned; null is ignored. VAULTRY_BUSY: it is at work
 * and was not freed; cancel the run, and destroy the generator when vaultry_generate has returned.
 */
VAULTRY_API enum vaultry_result vaultry_destroy(vaultry_generator* generator);

/**
 * Reads a configuration, in place of any earlier one, and forgets all names that were set. What is
 * wrong with it is told by vaultry_error, even when it can be used: VAULTRY_REFUSED means that it
 * holds no tile set.
 *
 * Options that are no names stay as they were set; the last run is forgotten, but for its seed and
 * stamp. A file that cannot be opened holds nothing, and counts as such. After VAULTRY_CANCELED the
 * configuration is empty. Where a pipe is read, the call waits for its writer; vaultry_cancel ends
 * that too.
 */
VAULTRY_API enum vaultry_result vaultry_init(vaultry_generator* generator, const char* path);
/**
 * Like vaultry_init, from `length` bytes of a document that is needed during the call only. `name`
 * stands for the file in messages, and in the command line of a run. The document need not end with
 * a zero byte; a null one is an empty one, whatever `length` says.
 */
VAULTRY_API enum vaultry_result vaultry_init_from_memory(vaultry_generator* generator,
                                                         const char* text,
                                                         size_t length,
                                                         const char* name);

/**
 * Reads the configuration of a built-in preset, as vaultry_init would, and sets the options that
 * belong together with it; the others that shape levels have their defaults again. What is set
 * afterwards goes before it. The case of the name does not matter; VAULTRY_BAD_ARGUMENT for one
 * that there is not, which changes nothing. Names, descriptions and options: see
 * vaultry_presets_json.
 *
 * @code{.c}
 * vaultry_use_preset(generator, "tomb");
 * vaultry_set(generator, "levels", "3");
 * vaultry_generate(generator, "old tomb.esp");
 * @endcode
 */
VAULTRY_API enum vaultry_result vaultry_use_preset(vaultry_generator* generator, const char* name);

/**
 * Sets an option to what its switch on the command line takes; switches without a value take "true"
 * or "false". Options: see vaultry_option; "strict" counts the errors of the last vaultry_init too,
 * "ensure-walkable" and "ensure-closed" are for random levels. Names are looked up in the
 * configuration, which therefore comes first; their case does not matter. "seed" and "stamp" are
 * drawn by chance for every run until they are set. A number beyond the bounds of its switch, which
 * the error names, and a name with letters that the game's code page (Windows-1252) lacks are
 * refused. A value that is refused changes nothing.
 *
 * Of two options that exclude each other, "tileset" and "cave-tileset" for instance, the one that
 * is set last counts. What was set holds for all later runs; only a new generator has the defaults
 * again. Numbers are written in decimal digits, without a sign; of words the case does not matter.
 *
 * @code{.c}
 * vaultry_set(generator, "levels", "3");
 * vaultry_set(generator, "spacing", "Semi-loose");
 * vaultry_set(generator, "random-theme", "true");
 * @endcode
 */
VAULTRY_API enum vaultry_result
vaultry_set(vaultry_generator* generator, const char* option, const char* value);
/**
 * The name of an option, counted from 0; null past the last one. It holds for ever. In the order of
 * the program's help, and the same for all generators; vaultry_options_json tells more of each.
 */
VAULTRY_API const char* vaultry_option(size_t index);

/**
 * Shows the progress of later runs; a null function ends that. `context` is handed on; it is
 * neither looked at nor freed, and has to be good as long as runs may show their progress.
 */
VAULTRY_API enum vaultry_result
vaultry_set_progress(vaultry_generator* generator, vaultry_progress progress, void* context);

/**
 * Generates a plug-in and writes it to `path`. It is written beside a file that is there and
 * replaces that when it is whole and on the disk: whatever fails, the old file stays. A link stays
 * a link. A folder, a pipe and a device are not written to. Unless "cell" was set the cell is named
 * after the file, "keep" of "keep.esp", since the game merges cells of one name.
 *
 * The plug-in stays in memory besides: vaultry_plugin and all questions answer for it, after
 * VAULTRY_NOT_WRITTEN too. The last run's dungeon is given up when this one begins, whatever comes
 * of it.
 */
VAULTRY_API enum vaultry_result vaultry_generate(vaultry_generator* generator, const char* path);

/**
 * Like vaultry_generate, but writes nothing: vaultry_plugin hands out the bytes. The cell is called
 * "dungeon" unless "cell" was set. "strict" is for writing and changes nothing here.
 * VAULTRY_REFUSED without a tile set or layout to use, and where "ensure-walkable" or
 * "ensure-closed" tried a thousand seeds for nothing.
 */
VAULTRY_API enum vaultry_result vaultry_run(vaultry_generator* generator);

/**
 * Cancels the call that is under way with the generator, on whatever thread: reading a
 * configuration or generating ends with VAULTRY_CANCELED soon. Nothing when there is none. The one
 * function that another thread may call at any time as long as the generator exists. It returns at
 * once and waits for nothing. Calls that begin later are not cancelled.
 */
VAULTRY_API void vaultry_cancel(vaultry_generator* generator);

/**
 * The bytes of the last run's plug-in, their number in `length`; null and 0 without one. They
 * belong to the generator like every text, and are made anew by each call: keep a copy rather than
 * ask twice. `length` must not be null.
 */
VAULTRY_API const void* vaultry_plugin(vaultry_generator* generator, size_t* length);

/** The seed of the last run, that of the walkable dungeon if one was looked for; 0 before any.
 * Setting it and the stamp repeats the run to the byte. */
VAULTRY_API uint32_t vaultry_last_seed(const vaultry_generator* generator);
/**
 * The stamp of the last run, 0 before any: the number that identifiers of containers carry. Two
 * plug-ins of one stamp that a player loads together may take each other's containers.
 */
VAULTRY_API int64_t vaultry_last_stamp(const vaultry_generator* generator);

/**
 * @name Questions
 * What these functions return is null when there is no answer: vaultry_error says why, unless
 * memory did not suffice. The answers that are JSON are objects with the numbers "schema" and
 * "version"; what else they hold is told in docs/embedding.md. Bytes and texts that the generator
 * handed out may be handed back in.
 *
 * Each answer is made when it is asked for, and takes the place of the one before. Asking changes
 * neither configuration nor options nor the last run; a question that is refused puts its reason in
 * the place of the errors that were there.
 * @{
 */

/** The number under "schema": it grows when a key of any answer changes its meaning or goes. */
VAULTRY_API int vaultry_schema(void);

/** The last run: how it ended, seed, stamp, what chance chose, what became of each level. Null
 * before any run with the configuration; a run that was refused or cancelled has an answer too. */
VAULTRY_API const char* vaultry_run_json(vaultry_generator* generator);
/**
 * The map of the last run. `kind` is "svg" (a picture), "html" (a page), "text" (for a terminal) or
 * "json" (cells, rooms, and everything that is placed with its place and turn). Another word is
 * refused, and null before any run with the configuration.
 */
VAULTRY_API const char* vaultry_map(vaultry_generator* generator, const char* kind);
/** The facts of the last run's dungeon, the numbers that a search asks for. */
VAULTRY_API const char* vaultry_facts_json(vaultry_generator* generator);
/** All facts there are, with what they say and their bounds. */
VAULTRY_API const char* vaultry_fact_list_json(vaultry_generator* generator);
/**
 * Whether a condition, such as "rooms >= 12 and walkable", holds for the last run's dungeon, and
 * the values and bounds of the facts that it asks for. Without a dungeon "holds" and the values are
 * null.
 */
VAULTRY_API const char* vaultry_judge_json(vaultry_generator* generator, const char* condition);

/** Everything in the configuration that an option can name, with levels of themes and sizes of
 * layouts. */
VAULTRY_API const char* vaultry_choices_json(vaultry_generator* generator);
/** The built-in presets with name, description and options, in the order of `vaultry list`. */
VAULTRY_API const char* vaultry_presets_json(vaultry_generator* generator);
/** What is wrong with the configuration that was read, with places. */
VAULTRY_API const char* vaultry_problems_json(vaultry_generator* generator);
/** Every option with its kind, bounds, words and default. */
VAULTRY_API const char* vaultry_options_json(vaultry_generator* generator);
/** What a configuration may hold: elements and their attributes. */
VAULTRY_API const char* vaultry_grammar_json(vaultry_generator* generator);

/** The command line that makes the plug-in of the last run again, for a POSIX shell. */
VAULTRY_API const char* vaultry_command_line(vaultry_generator* generator);
/**
 * What such a line asks for: its configuration, and its options as vaultry_set takes them. Nothing
 * is set.
 */
VAULTRY_API const char* vaultry_command_line_json(vaultry_generator* generator, const char* line);

/**
 * Checks `length` bytes of a configuration, which the generator does not take over: everything that
 * is wrong with it, with its place and what it means. `name` stands for the file.
 */
VAULTRY_API const char*
vaultry_check_json(vaultry_generator* generator, const char* text, size_t length, const char* name);
/**
 * The shapes of everything that `length` bytes of a configuration name, as triangles in world
 * units: together with the places that vaultry_map ("json") and vaultry_inspect_json tell, a
 * dungeon in three dimensions. They come from a table of the game's pieces, where it has them. With
 * a null `text` those of the built-in configuration that `name` ("builtin", "builtin:caves") stands
 * for.
 */
VAULTRY_API const char* vaultry_shapes_json(vaultry_generator* generator,
                                            const char* text,
                                            size_t length,
                                            const char* name);
/** Everything that `length` bytes of a plug-in hold, and what does not fit. */
VAULTRY_API const char* vaultry_inspect_json(vaultry_generator* generator,
                                             const void* plugin,
                                             size_t length,
                                             const char* name);
/** What differs between two plug-ins. */
VAULTRY_API const char* vaultry_compare_json(vaultry_generator* generator,
                                             const void* a,
                                             size_t length_of_a,
                                             const void* b,
                                             size_t length_of_b);
/** @} */

/** How many errors the last vaultry_init, vaultry_set, vaultry_generate or vaultry_run met, or a
 * question that was refused since. */
VAULTRY_API size_t vaultry_error_count(const vaultry_generator* generator);
/**
 * One of those errors by its number from 0, a line that can be shown as it is: "?" stands for
 * characters that drive terminals. Null past the last one. It holds as the generator's other texts
 * do, until the next call: show it, or copy it, first.
 */
VAULTRY_API const char* vaultry_error(const vaultry_generator* generator, size_t index);

#ifdef __cplusplus
}
#endif

#endif
