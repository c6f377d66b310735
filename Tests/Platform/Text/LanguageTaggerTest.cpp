#include "Platform/Text/LanguageTagger.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "Tests/Support/Fixtures.h"
#include "Tests/Support/LanguageRows.h"

namespace platform {
namespace {

struct Row {
    const char* language;
    std::u16string_view text;
};

void expectLanguage(const Row& row) {
    EXPECT_EQ(LanguageTagger::dominantLanguageForString(row.text), row.language)
        << utf8FromUtf16(row.text.substr(0, 200));
}

// One for each code that the platform has.
constexpr Row kSentences[] = {
    {"en", u"The keeper of the lighthouse climbed the stairs every evening and lit the lamp."},
    {"de",
     u"Der Wärter des Leuchtturms stieg jeden Abend die Treppe hinauf und zündete die Lampe an."},
    {"fr", u"Le gardien du phare montait chaque soir les marches et allumait la lampe."},
    {"es", u"El guardián del faro subía todas las noches la escalera y encendía la lámpara."},
    {"it", u"Il guardiano del faro saliva ogni sera le scale e accendeva la lampada."},
    {"nl", u"De vuurtorenwachter klom elke avond de trap op en stak de lamp aan."},
    {"sv", u"Fyrvaktaren gick varje kväll uppför trappan och tände lampan."},
    {"da",
     u"Fyrvogteren gik hver aften op ad trappen og tændte lampen, og skibene fandt vejen hjem."},
    {"nb", u"Fyrvokteren gikk opp trappen hver kveld og tente lampen, og skipene fant veien hjem."},
    {"fi", u"Majakanvartija nousi joka ilta portaat ylös ja sytytti lampun."},
    {"pt", u"O guarda do farol subia as escadas todas as noites e acendia a lâmpada."},
    {"pl", u"Latarnik wchodził co wieczór po schodach i zapalał lampę."},
    {"cs",
     u"Strážce majáku vystoupal každý večer po schodech a rozsvítil lampu, která ukazovala lodím "
     u"cestu."},
    {"sk",
     u"Strážca majáka vystúpil každý večer po schodoch a zapálil lampu, ktorá ukazovala lodiam "
     u"cestu."},
    {"hu", u"A világítótorony őre minden este felment a lépcsőn, és meggyújtotta a lámpát."},
    {"ro", u"Paznicul farului urca în fiecare seară treptele și aprindea lampa."},
    {"hr", u"Čuvar svjetionika svake se večeri penjao uz stepenice i palio svjetiljku."},
    {"tr", u"Deniz fenerinin bekçisi her akşam merdivenleri çıkar ve lambayı yakardı."},
    {"vi", u"Mỗi buổi tối người gác hải đăng leo lên cầu thang và thắp đèn."},
    {"id",
     u"Setiap malam penjaga mercusuar itu menaiki tangga dan menyalakan lampu karena kapal-kapal "
     u"harus bisa pulang."},
    {"ms",
     u"Setiap malam penjaga rumah api itu menaiki tangga dan memasang lampu kerana kapal-kapal "
     u"perlu boleh pulang."},
    {"ca", u"El guardià del far pujava cada vespre les escales i encenia el llum amb molta cura."},
    {"is", u"Vitavörðurinn gekk upp stigann á hverju kvöldi og kveikti á lampanum."},
    {"el", u"Ο φαροφύλακας ανέβαινε κάθε βράδυ τη σκάλα και άναβε τη λάμπα."},
    {"ru", u"Смотритель маяка каждый вечер поднимался по лестнице и зажигал лампу."},
    {"uk", u"Доглядач маяка щовечора піднімався сходами і запалював лампу."},
    {"bg", u"Пазачът на фара всяка вечер се качваше по стълбите и запалваше лампата."},
    {"kk", u"Маяк күзетшісі әр кеш сайын баспалдақпен көтеріліп, шамды жағатын."},
    {"mn", u"Гэрэлт цамхагийн манаач орой бүр шатаар өгсөж, дэнлүүг асаадаг байв."},
    {"ar", u"كان حارس المنارة يصعد الدرج كل مساء ويشعل المصباح."},
    {"fa", u"نگهبان فانوس دریایی هر شب از پله بالا می‌رفت."},
    {"ur", u"مینار کا رکھوالا ہر شام سیڑھیاں چڑھتا تھا اور چراغ جلاتا تھا۔"},
    {"hi", u"प्रकाशस्तंभ का रखवाला हर शाम सीढ़ियाँ चढ़ता था और दीपक जलाता था।"},
    {"mr", u"दीपगृहाचा रखवालदार रोज संध्याकाळी पायऱ्या चढून दिवा लावत असे आणि तो खूप आनंदी होता."},
    {"he", u"שומר המגדלור עלה כל ערב במדרגות והדליק את המנורה."},
    {"bn", u"বাতিঘরের রক্ষক প্রতি সন্ধ্যায় সিঁড়ি বেয়ে উঠে বাতি জ্বালাতেন।"},
    {"am", u"የመብራት ቤቱ ጠባቂ በየምሽቱ ደረጃውን ወጥቶ መብራቱን ያበራ ነበር።"},
    {"ta", u"கலங்கரை விளக்கத்தின் காவலர் தினமும் மாலையில் படிகளில் ஏறினார்."},
    {"te", u"దీపస్తంభం కాపలాదారు ప్రతి సాయంత్రం మెట్లు ఎక్కేవాడు."},
    {"kn", u"ದೀಪಸ್ತಂಭದ ಕಾವಲುಗಾರನು ಪ್ರತಿ ಸಂಜೆ ಮೆಟ್ಟಿಲು ಹತ್ತುತ್ತಿದ್ದನು."},
    {"ml", u"വിളക്കുമാടത്തിന്റെ കാവൽക്കാരൻ എല്ലാ വൈകുന്നേരവും പടികൾ കയറി."},
    {"gu", u"દીવાદાંડીનો રખેવાળ દરરોજ સાંજે પગથિયાં ચઢતો હતો."},
    {"pa", u"ਚਾਨਣ ਮੁਨਾਰੇ ਦਾ ਰਾਖਾ ਹਰ ਸ਼ਾਮ ਪੌੜੀਆਂ ਚੜ੍ਹਦਾ ਸੀ।"},
    {"or", u"ବତୀଘରର ରକ୍ଷକ ପ୍ରତି ସନ୍ଧ୍ୟାରେ ପାହାଚ ଚଢ଼ୁଥିଲେ।"},
    {"si",
     u"ප්‍රදීපාගාරයේ භාරකරු සෑම සවසකම "
     u"පඩිපෙළ "
     u"නැග්ගේය."},
    {"th", u"ผู้ดูแลประภาคารเดินขึ้นบันไดทุกเย็นแล้วจุดตะเกียง"},
    {"lo", u"ຄົນເຝົ້າປະພາຄານຂຶ້ນຂັ້ນໄດທຸກແລງ"},
    {"km", u"អ្នកយាមប៉មភ្លើងឡើងជណ្តើររៀងរាល់ល្ងាច"},
    {"my", u"မီးပြတိုက်စောင့်သည် ညနေတိုင်း လှေကားတက်သည်။"},
    {"bo", u"གློག་བཞུ་སྲུང་མཁན་དགོང་མོ་ལྟར་སྐས་འཛེགས།"},
    {"ja", u"灯台守は毎晩階段を上り、ランプに火をともした。"},
    {"ko", u"등대지기는 저녁마다 계단을 올라가 등불을 켰다."},
    {"zh-Hans", u"灯塔看守人每天晚上爬上楼梯，点亮灯火。"},
    {"zh-Hant", u"燈塔看守人每天晚上爬上樓梯，點亮燈火。"},
    {"ka", u"შუქურის დარაჯი ყოველ საღამოს კიბეს ადიოდა და ლამპას ანთებდა."},
    {"hy", u"Փարոսի պահակը ամեն երեկո բարձրանում էր աստիճաններով և վառում լամպը։"},
    {"chr", u"ᏣᎳᎩ ᎦᏬᏂᎯᏍᏗ ᎠᏂᏬᏂᏍᎩ"},
};

TEST(LanguageTagger, NamesEveryLanguageThatThePlatformNames) {
    std::vector<std::string_view> seen;
    for (const Row& row : kSentences) {
        expectLanguage(row);
        seen.emplace_back(row.language);
    }
    std::sort(seen.begin(), seen.end());
    EXPECT_TRUE(std::equal(seen.begin(), seen.end(), std::begin(test::kNamedLanguages),
                           std::end(test::kNamedLanguages)));
}

TEST(LanguageTagger, TellsAFewWords) {
    constexpr Row kRows[] = {
        {"en", u"What is that?"},
        {"de", u"Was ist das?"},
        {"fr", u"Qu'est-ce que c'est ?"},
        {"es", u"¿Qué es eso?"},
        {"it", u"Che cos'è?"},
        {"nl", u"Hoe heet je?"},
        {"sv", u"Vad är det?"},
        {"da", u"Hvad er det for noget?"},
        {"nb", u"Hva er det for noe?"},
        {"fi", u"Mikä se on?"},
        {"pt", u"O que é isso?"},
        {"pl", u"Co to jest?"},
        {"cs", u"Co to může být?"},
        {"sk", u"Čo to môže byť?"},
        {"hu", u"Mi ez az?"},
        {"ro", u"Ce este asta?"},
        {"tr", u"Bu nedir acaba?"},
        {"ru", u"Что это такое?"},
        {"uk", u"Що це таке?"},
        {"bg", u"Какво е това?"},
        {"fa", u"این چیست؟"},
        {"ur", u"یہ کیا ہے؟"},
        {"hi", u"यह क्या है?"},
        {"mr", u"हे काय आहे?"},
        {"en", u"IT'S NOT WHAT YOU THINK"},
        // Turkish writes its endings behind names with an apostrophe.
        {"tr", u"2011'de Ankara'da"},
        // A typewriter's and a printer's apostrophe.
        {"it", u"dell'uomo"},
        {"it", u"dell\u2019uomo"},
        // Romanian with the cedilla that older machines have instead of the comma.
        {"ro", u"aşa şi aşa, fără să ştie"},
    };
    for (const Row& row : kRows) {
        expectLanguage(row);
    }
}

TEST(LanguageTagger, SaysThatItCannotTell) {
    constexpr Row kRows[] = {
        {"und", u""},
        {"und", u" \t\r\n\u2028"},
        {"und", u"1234567890"},
        {"und", u"3.14 + 2 = ?! (5 %)"},
        {"und", u"... --- !!! \u2026"},
        {"und", u"\U0001F600"},
        {"und", u"\U0001F600\U0001F1E9\U0001F1EA 12"},
        {"und", u"\u0301\u0308"},
        {"und", u"\uFFFC\uFFFD\uFFFF\x01"},
        {"und", std::u16string_view(u"\0\0\0", 3)},
        {"und", u"x"},
        // Scripts and languages that have no code of the platform's.
        {"und", u"ܐܢܐ ܐܝܬܝ ܢܘܗܪܗ ܕܥܠܡܐ"},
        {"und", u"Visi cilvēki piedzimst brīvi un vienlīdzīgi savā pašcieņā un tiesībās."},
        {"und", u"Visi žmonės gimsta laisvi ir lygūs savo orumu ir teisėmis."},
        {"und", u"Усе людзі нараджаюцца свабоднымі і роўнымі ў сваёй годнасці і правах."},
        {"und", u"সকলো মানুহেই স্বাধীনভাৱে সমান মৰ্যাদা আৰু অধিকাৰেৰে জন্মগ্ৰহণ কৰে।"},
    };
    for (const Row& row : kRows) {
        expectLanguage(row);
    }
}

TEST(LanguageTagger, LoneSurrogatesBelongToNoWord) {
    constexpr char16_t kOnly[] = {0xD800, 0xDC00, 0xDC00, 0xD800, 0};
    constexpr char16_t kBetween[] = u"Was \xD800 ist \xDC00 das f\u00FCr ein Haus?\xD83D";
    expectLanguage({"und", {kOnly + 2, 1}});
    expectLanguage({"und", {kOnly + 3, 1}});
    expectLanguage({"und", kOnly});
    expectLanguage({"de", kBetween});
}

TEST(LanguageTagger, ChineseAlwaysHasAScript) {
    constexpr Row kRows[] = {
        {"zh-Hans", u"他们学习汉语。"},
        {"zh-Hant", u"他們學習漢語。"},
        {"zh-Hans", u"我们在使用Linux系统和GNOME桌面"},
        {"zh-Hant", u"我們在使用Linux系統和GNOME桌面"},
        // A few kana in a name.
        {"zh-Hant",
         u"我們昨天在市中心的ユニクロ買了兩件衣服，後來又去書店看了一個下午的書才回家。"},
        // Nothing that only one of them has.
        {"zh-Hans", u"人山人海"},
        {"zh-Hant", u"ㄅㄆㄇㄈ"},
    };
    for (const Row& row : kRows) {
        expectLanguage(row);
    }
}

TEST(LanguageTagger, JapaneseWithoutKanaIsKnownByItsForms) {
    constexpr Row kRows[] = {
        {"ja", u"東京駅発"},  // the second only in Japan
        {"ja", u"公称身長"},  // forms of both Chinese scripts
        {"ja", u"基盤左側に周辺機器"},
    };
    for (const Row& row : kRows) {
        expectLanguage(row);
    }
}

TEST(LanguageTagger, MostOfTheTextDecides) {
    constexpr Row kRows[] = {
        {"ko", u"Kori Schulman 오바마 대통령"},
        {"zh-Hant", u"德國Obermarsberg具有"},
        {"ru", u"Журнал Saint Louis Post напечатал это"},
        {"en", u"The Greek letters α and β stand for angles."},
        {"en", u"The word 猫 means cat, and the word 犬 means dog."},
        {"ja", u"GNU/Linuxのディストリビューションを使う"},
        {"de",
         u"Er sagte: »Good morning!«, und alle lachten über seine Aussprache des Englischen."},
        {"th", u"ใช้โปรแกรม LibreOffice Writer เขียนเอกสาร"},
    };
    for (const Row& row : kRows) {
        expectLanguage(row);
    }
}

TEST(LanguageTagger, TheBeginningOfALongTextDecides) {
    std::u16string text;
    while (text.size() < 100'000) {
        text += u"Jeden Abend stieg er zweihundert Stufen hinauf. ";
    }
    const std::u16string english = u"Every evening he climbed two hundred steps. ";
    expectLanguage({"de", text});
    expectLanguage({"de", text + english});
    // A word without an end, and blanks that never end.
    expectLanguage({"und", std::u16string(1'000'000, u'-')});
    EXPECT_FALSE(
        LanguageTagger::dominantLanguageForString(std::u16string(1'000'000, u'e')).empty());
    expectLanguage({"de", std::u16string(1'000'000, u' ') + u"Was ist das für ein Haus?"});
}

TEST(LanguageTagger, AnswersOnManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < 8; ++number) {
        threads.emplace_back([number] {
            for (std::size_t i = 0; i < 3 * std::size(kSentences); ++i) {
                expectLanguage(kSentences[(i * 7 + number) % std::size(kSentences)]);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

struct Share {
    std::size_t all = 0;
    std::size_t right = 0;

    [[nodiscard]] double percent() const {
        return all == 0 ? 0 : 100 * static_cast<double>(right) / static_cast<double>(all);
    }
};

TEST(LanguageTagger, IsRightAboutRealSentences) {
    Share shares[std::size(test::kLengthClasses)];
    for (const char* name : {"pud-sentences", "pud-short-prefixes", "udhr-articles"}) {
        const auto path = test::fixturePath("language/" + std::string(name) + ".tsv");
        if (!path) {
            GTEST_SKIP() << "no table " << name << " on this machine";
        }
        for (const test::LanguageRow& row : test::languageRows(*path)) {
            if (test::isNamedLanguage(row.language)) {
                Share& share = shares[test::lengthClassOf(row)];
                share.all++;
                const auto answer = LanguageTagger::dominantLanguageForString(row.text);
                share.right += test::isRightLanguage(row.language, answer) ? 1 : 0;
            }
        }
    }
    EXPECT_GE(shares[1].percent(), 95) << test::kLengthClasses[1];
    EXPECT_GE(shares[2].percent(), 98) << test::kLengthClasses[2];
    EXPECT_GE(shares[3].percent(), 99) << test::kLengthClasses[3];
}

}  // namespace
}  // namespace platform
