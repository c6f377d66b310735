#include "Tools/pvdoc/Units.h"

#include "Platform/Text/SubstringEnumeration.h"
#include "Tools/pvdoc/Progress.h"
#include "Tools/pvdoc/TextOfFile.h"

namespace pvdoc {

platform::Result<std::uint64_t> listUnits(const std::string& file, platform::TextUnitKind kind,
                                          ListingForm form, const Output& output) {
    const platform::AttributedString text = PV_TRY(textOfFile(file));
    const std::u16string& string = text.string();
    Progress progress("units", string.size(), Progress::Printing::Meanwhile);
    Listing listing(form, "text", output);
    std::uint64_t count = 0;
    platform::enumerateSubstringsInRange(string, {0, string.size()}, static_cast<unsigned>(kind),
                                         [&](const platform::EnumeratedSubstring& unit, bool&) {
                                             listing.addText(unit.substringRange, *unit.substring);
                                             progress.reach(unit.substringRange.location);
                                             ++count;
                                         });
    return count;
}

}  // namespace pvdoc
