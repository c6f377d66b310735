// The parts of the benchmark run. Each registers what it measures and the rows that compare it.

#pragma once

#include "Benchmarks/Support/Packages.h"
#include "Benchmarks/Support/Report.h"

namespace bench {

/// The main job inside one process: a package in, its text out.
void addPackageBenchmarks(const Packages& packages, Report& report);

/// Keyed archives in memory.
void addArchiveBenchmarks(Report& report);

/// Documents in RTF, beside a loop that strips them.
void addRtfBenchmarks(Report& report);

/// Pages of HTML, beside the library alone.
void addHtmlBenchmarks(Report& report);

/// Archives of many members, beside two other libraries.
void addZipBenchmarks(const Packages& packages, Report& report);

/// Archives written, beside three other libraries.
void addZipWritingBenchmarks(const Packages& packages, Report& report);

/// Plain text in several encodings, beside loops that only widen or copy it.
void addPlainTextBenchmarks(Report& report);

/// Units of a text one after the other, beside the library alone.
void addEnumerationBenchmarks(Report& report);

/// Languages of texts, beside a library alone.
void addLanguageBenchmarks(Report& report);

/// Steps from unit to unit in short and in long texts.
void addNavigationBenchmarks(Report& report);

/// The clean-up of imported text.
void addImportBenchmarks(Report& report);

/// PDF files, beside a library alone.
void addPdfBenchmarks(Report& report);

/// Segments of one language, beside the libraries below.
void addSegmentationBenchmarks(Report& report);

/// The main job as a whole process.
void addProcessBenchmarks(const Packages& packages, Report& report);

/// Measures at once how much memory the main job takes at its peak.
void measureMemory(const Packages& packages, Report& report);

}  // namespace bench
