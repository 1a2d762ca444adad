/* SPDX-License-Identifier: MIT
 * Generates a dungeon from C:
 *   cc generate.c $(pkg-config --cflags --libs vaultry) -o generate
 *   ./generate "$(pkg-config --variable=datadir vaultry)/vaultry.xml" dungeon.esp 7
 */
#include <vaultry/vaultry.h>

#include <stdio.h>
#include <stdlib.h>

static int print_progress(void* context, const char* text, int32_t position, int32_t steps) {
    (void)context;
    printf("%s: %d of %d\n", text, (int)position, (int)steps);
    return 0;
}

static int fail(const vaultry_generator* generator) {
    for (size_t i = 0; i < vaultry_error_count(generator); ++i) {
        fprintf(stderr, "%s\n", vaultry_error(generator, i));
    }
    return EXIT_FAILURE;
}

int main(int argc, char** argv) {
    if (argc < 3) {
        fprintf(stderr, "usage: generate CONFIGURATION PLUGIN [SEED]\n");
        return EXIT_FAILURE;
    }
    vaultry_generator* generator = vaultry_create();
    if (generator == NULL) {
        return EXIT_FAILURE;
    }
    int status = EXIT_SUCCESS;
    vaultry_set_progress(generator, print_progress, NULL);
    if (vaultry_init(generator, argv[1]) != VAULTRY_OK ||
        vaultry_set(generator, "size", "Small") != VAULTRY_OK ||
        (argc > 3 && vaultry_set(generator, "seed", argv[3]) != VAULTRY_OK) ||
        vaultry_generate(generator, argv[2]) != VAULTRY_OK) {
        status = fail(generator);
    } else {
        printf("seed %lu\n%s\n",
               (unsigned long)vaultry_last_seed(generator),
               vaultry_run_json(generator));
    }
    vaultry_destroy(generator);
    return status;
}
