#include "Platform/Text/HtmlReader.h"

#include "Platform/Text/HtmlEncoding.h"
#include "Platform/Text/HtmlParser.h"

namespace platform {

Result<AttributedString> attributedStringFromHtml(const Data& data) {
    const Data page = PV_TRY(utf8OfHtml(data));
    return HtmlParser(page.view()).parse();
}

}  // namespace platform
