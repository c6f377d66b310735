#include "Fuzz/Support/Seeds.h"

namespace fuzz {

using namespace std::string_view_literals;
using platform::Data;

std::vector<Seed> plainTextSeeds() {
    return {
        {"windows-1252", Data::copyOf("Der W\xE4rter z\xFCndete \x84"
                                      "die Lampe\x93 an \x96 5 \x80 \x85"sv)},
        {"windows-1250", Data::copyOf("Ka\xBF"
                                      "dego wieczoru zapala\xB3 lamp\xEA."sv)},
        {"windows-1251",
         Data::copyOf("\xD1\xEC\xEE\xF2\xF0\xE8\xF2\xE5\xEB\xFC \xEC\xE0\xFF\xEA\xE0"sv)},
        {"windows-1255", Data::copyOf("\xF9\xE5\xEE\xF8 \xE4\xEE\xE2\xE3\xEC\xE5\xF8"sv)},
        {"windows-1256",
         Data::copyOf("\xDF\xC7\xE4 \xCD\xC7\xD1\xD3 \xC7\xE1\xE3\xE4\xC7\xD1\xC9"sv)},
        {"windows-1258", Data::copyOf("Ng\xFD\xCCi\xEC\xD2"sv)},
        {"windows-874", Data::copyOf("\xA4\xB9\xE0\xBD\xE9\xD2\xBB\xC3\xD0\xC0\xD2\xA4\xD2\xC3"sv)},
        {"koi8-r", Data::copyOf("\xF3\xCD\xCF\xD4\xD2\xC9\xD4\xC5\xCC\xD8 \xCD\xC1\xD1\xCB\xC1"sv)},
        {"cp866-with-lines",
         Data::copyOf("\xC9\xCD\xCD\xBB \xE2\xA5\xAA\xE1\xE2 \xC8\xCD\xCD\xBC"sv)},
        {"macintosh", Data::copyOf("O\x9D \x90tes-vous all\x8E, gar\x8Don"sv)},
        {"shift-jis",
         Data::copyOf("\x93\x94\x91\xE4\x8E\xE7\x82\xCD \xC4\xB3\xC0\xDE\xB2 words"sv)},
        {"euc-jp", Data::copyOf("\xC5\xF4\xC2\xE6\xBC\xE9\xA4\xCF\xCB\xE8\xC8\xD5"sv)},
        {"iso-2022-jp", Data::copyOf("\x1B$B8@8l\x1B(B words"sv)},
        {"iso-2022-kr", Data::copyOf("\x1B$)C\x0E"
                                     "C\x22\x0F words"sv)},
        {"iso-2022-cut", Data::copyOf("\x1B$B8@"sv)},
        {"gbk-with-letters", Data::copyOf("\xCA\xB9\xD3\xC3Linux\xCF\xB5\xCD\xB3"sv)},
        {"gb18030-four-bytes", Data::copyOf("\xD6\xD0\x95"
                                            "2\x82"
                                            "6\x81"
                                            "9\xEE"
                                            "9\xCE\xC4"sv)},
        {"big5", Data::copyOf("\xBFO\xB6\xF0\xAA\xBA\xAC\xDD\xA6u\xA4H"sv)},
        {"euc-kr", Data::copyOf("\xB5\xEE\xB4\xEB\xC1\xF6\xB1\xE2\xB4\xC2 \xB8\xC5\xC0\xCF"sv)},
        {"utf-8-damaged", Data::copyOf("Gr\xC3\xBC\xC3\x9F"
                                       "e u\xFFK\xC3\xBCsse f\xC3\xBCr \xC3\x84pfel"sv)},
        {"utf-16-be-bare", Data::copyOf("\x00w\x00i\x00"
                                        "d\x00"
                                        "e\x00 \x00t\x00"
                                        "e\x00x\x00t\x00\n"sv)},
        {"utf-16-bare-cyrillic", Data::copyOf("B\x04"
                                              "5\x04:\x04"
                                              "A\x04"
                                              "B\x04 \x00"
                                              "4\x04"
                                              "0\x04\n\x00"sv)},
        {"utf-16-bare-half", Data::copyOf("w\x00i\x00"
                                          "d\x00"
                                          "e\x00x"sv)},
        {"utf-32-bare", Data::copyOf("\x00\x00\x00w\x00\x00\x00i\x00\x00\x00"
                                     "d\x00\x00\x00"
                                     "e"sv)},
        {"utf-32-mark", Data::copyOf("\xFF\xFE\x00\x00w\x00\x00\x00i\x00\x00\x00"
                                     "d\x00\x00\x00"
                                     "e\x00\x00\x00\x00\xF6\x01\x00"sv)},
        {"nuls-between-words", Data::copyOf("one\x00two\x00three\n"sv)},
        {"padded", Data::copyOf("words\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"sv)},
        {"small-numbers", Data::copyOf("\x01\x00\x02\x00\x03\x00\x04\x00"sv)},
        {"png", Data::copyOf("\x89PNG\x0D\n\x1A\n\x00\x00\x00\x0DIHDR"sv)},
        {"xhtml", Data::copyOf("<\x3Fxml version=\x22"
                               "1.0\x22\x3F><!-- a --><html xmlns=\x22"
                               "b\x22/>"sv)},
    };
}

}  // namespace fuzz
