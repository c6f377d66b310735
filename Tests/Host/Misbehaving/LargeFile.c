/* Writes one file of two mebibytes. */

#include <stdio.h>

#include "Tests/Host/Misbehaving/Importer.h"

enum { BLOCK = 1 << 20 };

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    static char zeros[BLOCK];
    char path[4096];
    FILE* file = NULL;
    (void)attributes;
    snprintf(path, sizeof path, "%s/large", getenv("TMPDIR"));
    file = fopen(path, "w");
    if (file == NULL) {
        return 0;
    }
    fwrite(zeros, 1, sizeof zeros, file);
    fwrite(zeros, 1, sizeof zeros, file);
    return fclose(file) == 0;
}
