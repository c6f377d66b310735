/* Fills the disk by files none of which is large, one of them in a folder, and waits. Ends the
 * process where it finds what an earlier one has left.
 */

#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include "Tests/Host/Misbehaving/Importer.h"

enum { SIZE = 600 * 1024 };

static void writeFile(const char* name) {
    static char zeros[SIZE];
    char path[4096];
    FILE* file = NULL;
    snprintf(path, sizeof path, "%s/%s", getenv("TMPDIR"), name);
    if (access(path, F_OK) == 0) {
        exit(7);
    }
    file = fopen(path, "w");
    if (file != NULL) {
        fwrite(zeros, 1, sizeof zeros, file);
        fclose(file);
    }
}

static Boolean importBadFile(CFMutableDictionaryRef attributes) {
    char folder[4096];
    volatile int forever = 1;
    (void)attributes;
    snprintf(folder, sizeof folder, "%s/folder", getenv("TMPDIR"));
    mkdir(folder, 0700);
    writeFile("first");
    writeFile("folder/second");
    while (forever) {
        pause();
    }
    return 0;
}
