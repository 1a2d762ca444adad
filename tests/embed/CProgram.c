/* SPDX-License-Identifier: MIT */
#include "tests/embed/CProgram.h"

#include <vaultry/vaultry.h>

#include <string.h>

#define CHECK(condition)                                                                           \
    do {                                                                                           \
        if (!(condition)) {                                                                        \
            return #condition;                                                                     \
        }                                                                                          \
    } while (0)

/* What a progress function finds when it uses the generator that runs, and one of its own. */
struct Visit {
    vaultry_generator* own;
    const char* config;
    const char* fault;
    int done;
};

static const char* Meddle(struct Visit* visit) {
    vaultry_generator* other = vaultry_create();
    CHECK(other != NULL);
    CHECK(vaultry_init(other, visit->config) == VAULTRY_OK);
    CHECK(vaultry_destroy(other) == VAULTRY_OK);
    CHECK(vaultry_destroy(visit->own) == VAULTRY_BUSY);
    CHECK(vaultry_generate(visit->own, "none.esp") == VAULTRY_BUSY);
    CHECK(strstr(vaultry_error(visit->own, 0), "at work") != NULL);
    return NULL;
}

static int OnProgress(void* context, const char* text, int32_t position, int32_t steps) {
    struct Visit* visit = context;
    (void)text;
    (void)steps;
    if (position == 1 && !visit->done) {
        visit->done = 1;
        visit->fault = Meddle(visit);
    }
    return visit->fault != NULL;
}

static const char* Use(vaultry_generator* generator, const char* config, const char* plugin) {
    struct Visit visit = {NULL, NULL, NULL, 0};
    visit.own = generator;
    visit.config = config;
    CHECK(vaultry_generate(generator, plugin) == VAULTRY_REFUSED);
    CHECK(vaultry_error_count(generator) > 0);
    CHECK(vaultry_init(generator, config) == VAULTRY_OK);
    CHECK(vaultry_error_count(generator) == 0);
    CHECK(vaultry_set(generator, "levels", "1001") == VAULTRY_BAD_ARGUMENT);
    CHECK(strstr(vaultry_error(generator, 0), "from 1 to 1000") != NULL);
    CHECK(vaultry_set(generator, "seed", "4294967295") == VAULTRY_OK);
    CHECK(vaultry_set(generator, "levels", "2") == VAULTRY_OK);
    CHECK(vaultry_set_progress(generator, OnProgress, &visit) == VAULTRY_OK);
    CHECK(vaultry_generate(generator, plugin) == VAULTRY_OK);
    CHECK(visit.done);
    CHECK(vaultry_last_seed(generator) == UINT32_MAX);
    CHECK(strstr(vaultry_run_json(generator), "\"result\": \"made\"") != NULL);
    return visit.fault;
}

const char* RunCProgram(const char* config, const char* plugin) {
    vaultry_generator* generator = vaultry_create();
    const char* fault = NULL;
    CHECK(generator != NULL);
    fault = Use(generator, config, plugin);
    CHECK(vaultry_destroy(generator) == VAULTRY_OK);
    CHECK(vaultry_destroy(NULL) == VAULTRY_OK);
    return fault;
}
