/* Never comes back, and leaves a file among the temporary ones first. */

#include <stdio.h>

#include "Tests/Host/Misbehaving/Importer.h"

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    char name[4096];
    FILE* file = NULL;
    volatile int forever = 1;
    (void)attributes;
    snprintf(name, sizeof name, "%s/left-behind", getenv("TMPDIR"));
    file = fopen(name, "w");
    if (file != NULL) {
        fclose(file);
    }
    while (forever) {
    }
    return 0;
}
