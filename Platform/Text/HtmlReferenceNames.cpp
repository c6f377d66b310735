#include "Platform/Text/HtmlReferenceNames.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform {
namespace {

// A name and its characters in turn, with a blank behind each, in the order of the names.

constexpr std::u16string_view kOldNames =
    u"AElig Æ AMP & Aacute Á Acirc Â Agrave À Aring Å Atilde Ã Auml Ä COPY © Ccedil Ç ETH Ð "
    u"Eacute É Ecirc Ê Egrave È Euml Ë GT > Iacute Í Icirc Î Igrave Ì Iuml Ï LT < Ntilde Ñ "
    u"Oacute Ó Ocirc Ô Ograve Ò Oslash Ø Otilde Õ Ouml Ö QUOT \" REG ® THORN Þ Uacute Ú Ucirc Û "
    u"Ugrave Ù Uuml Ü Yacute Ý aacute á acirc â acute ´ aelig æ agrave à amp & aring å atilde ã "
    u"auml ä brvbar ¦ ccedil ç cedil ¸ cent ¢ copy © curren ¤ deg ° divide ÷ eacute é ecirc ê "
    u"egrave è eth ð euml ë frac12 ½ frac14 ¼ frac34 ¾ gt > iacute í icirc î iexcl ¡ igrave ì "
    u"iquest ¿ iuml ï laquo « lt < macr ¯ micro µ middot · nbsp \u00A0 not ¬ ntilde ñ oacute ó "
    u"ocirc ô ograve ò ordf ª ordm º oslash ø otilde õ ouml ö para ¶ plusmn ± pound £ quot \" "
    u"raquo » reg ® sect § shy \u00AD sup1 ¹ sup2 ² sup3 ³ szlig ß thorn þ times × uacute ú "
    u"ucirc û ugrave ù uml ¨ uuml ü yacute ý yen ¥ yuml ÿ";

constexpr std::u16string_view kNames =
    u"Abreve Ă Acy А Afr \U0001D504 Alpha Α Amacr Ā And ⩓ Aogon Ą Aopf \U0001D538 "
    u"ApplyFunction \u2061 Ascr \U0001D49C Assign ≔ Backslash ∖ Barv ⫧ Barwed ⌆ Bcy Б Because ∵ "
    u"Bernoullis ℬ Beta Β Bfr \U0001D505 Bopf \U0001D539 Breve ˘ Bscr ℬ Bumpeq ≎ CHcy Ч "
    u"Cacute Ć Cap ⋒ CapitalDifferentialD ⅅ Cayleys ℭ Ccaron Č Ccirc Ĉ Cconint ∰ Cdot Ċ "
    u"Cedilla ¸ CenterDot · Cfr ℭ Chi Χ CircleDot ⊙ CircleMinus ⊖ CirclePlus ⊕ CircleTimes ⊗ "
    u"ClockwiseContourIntegral ∲ CloseCurlyDoubleQuote ” CloseCurlyQuote ’ Colon ∷ Colone ⩴ "
    u"Congruent ≡ Conint ∯ ContourIntegral ∮ Copf ℂ Coproduct ∐ "
    u"CounterClockwiseContourIntegral ∳ Cross ⨯ Cscr \U0001D49E Cup ⋓ CupCap ≍ DD ⅅ DDotrahd ⤑ "
    u"DJcy Ђ DScy Ѕ DZcy Џ Dagger ‡ Darr ↡ Dashv ⫤ Dcaron Ď Dcy Д Del ∇ Delta Δ Dfr \U0001D507 "
    u"DiacriticalAcute ´ DiacriticalDot ˙ DiacriticalDoubleAcute ˝ DiacriticalGrave ` "
    u"DiacriticalTilde ˜ Diamond ⋄ DifferentialD ⅆ Dopf \U0001D53B Dot ¨ DotDot \u20DC "
    u"DotEqual ≐ DoubleContourIntegral ∯ DoubleDot ¨ DoubleDownArrow ⇓ DoubleLeftArrow ⇐ "
    u"DoubleLeftRightArrow ⇔ DoubleLeftTee ⫤ DoubleLongLeftArrow ⟸ DoubleLongLeftRightArrow ⟺ "
    u"DoubleLongRightArrow ⟹ DoubleRightArrow ⇒ DoubleRightTee ⊨ DoubleUpArrow ⇑ "
    u"DoubleUpDownArrow ⇕ DoubleVerticalBar ∥ DownArrow ↓ DownArrowBar ⤓ DownArrowUpArrow ⇵ "
    u"DownBreve \u0311 DownLeftRightVector ⥐ DownLeftTeeVector ⥞ DownLeftVector ↽ "
    u"DownLeftVectorBar ⥖ DownRightTeeVector ⥟ DownRightVector ⇁ DownRightVectorBar ⥗ DownTee ⊤ "
    u"DownTeeArrow ↧ Downarrow ⇓ Dscr \U0001D49F Dstrok Đ ENG Ŋ Ecaron Ě Ecy Э Edot Ė "
    u"Efr \U0001D508 Element ∈ Emacr Ē EmptySmallSquare ◻ EmptyVerySmallSquare ▫ Eogon Ę "
    u"Eopf \U0001D53C Epsilon Ε Equal ⩵ EqualTilde ≂ Equilibrium ⇌ Escr ℰ Esim ⩳ Eta Η Exists ∃ "
    u"ExponentialE ⅇ Fcy Ф Ffr \U0001D509 FilledSmallSquare ◼ FilledVerySmallSquare ▪ "
    u"Fopf \U0001D53D ForAll ∀ Fouriertrf ℱ Fscr ℱ GJcy Ѓ Gamma Γ Gammad Ϝ Gbreve Ğ Gcedil Ģ "
    u"Gcirc Ĝ Gcy Г Gdot Ġ Gfr \U0001D50A Gg ⋙ Gopf \U0001D53E GreaterEqual ≥ "
    u"GreaterEqualLess ⋛ GreaterFullEqual ≧ GreaterGreater ⪢ GreaterLess ≷ GreaterSlantEqual ⩾ "
    u"GreaterTilde ≳ Gscr \U0001D4A2 Gt ≫ HARDcy Ъ Hacek ˇ Hat ^ Hcirc Ĥ Hfr ℌ HilbertSpace ℋ "
    u"Hopf ℍ HorizontalLine ─ Hscr ℋ Hstrok Ħ HumpDownHump ≎ HumpEqual ≏ IEcy Е IJlig Ĳ IOcy Ё "
    u"Icy И Idot İ Ifr ℑ Im ℑ Imacr Ī ImaginaryI ⅈ Implies ⇒ Int ∬ Integral ∫ Intersection ⋂ "
    u"InvisibleComma \u2063 InvisibleTimes \u2062 Iogon Į Iopf \U0001D540 Iota Ι Iscr ℐ "
    u"Itilde Ĩ Iukcy І Jcirc Ĵ Jcy Й Jfr \U0001D50D Jopf \U0001D541 Jscr \U0001D4A5 Jsercy Ј "
    u"Jukcy Є KHcy Х KJcy Ќ Kappa Κ Kcedil Ķ Kcy К Kfr \U0001D50E Kopf \U0001D542 "
    u"Kscr \U0001D4A6 LJcy Љ Lacute Ĺ Lambda Λ Lang ⟪ Laplacetrf ℒ Larr ↞ Lcaron Ľ Lcedil Ļ "
    u"Lcy Л LeftAngleBracket ⟨ LeftArrow ← LeftArrowBar ⇤ LeftArrowRightArrow ⇆ LeftCeiling ⌈ "
    u"LeftDoubleBracket ⟦ LeftDownTeeVector ⥡ LeftDownVector ⇃ LeftDownVectorBar ⥙ LeftFloor ⌊ "
    u"LeftRightArrow ↔ LeftRightVector ⥎ LeftTee ⊣ LeftTeeArrow ↤ LeftTeeVector ⥚ "
    u"LeftTriangle ⊲ LeftTriangleBar ⧏ LeftTriangleEqual ⊴ LeftUpDownVector ⥑ LeftUpTeeVector ⥠ "
    u"LeftUpVector ↿ LeftUpVectorBar ⥘ LeftVector ↼ LeftVectorBar ⥒ Leftarrow ⇐ "
    u"Leftrightarrow ⇔ LessEqualGreater ⋚ LessFullEqual ≦ LessGreater ≶ LessLess ⪡ "
    u"LessSlantEqual ⩽ LessTilde ≲ Lfr \U0001D50F Ll ⋘ Lleftarrow ⇚ Lmidot Ŀ LongLeftArrow ⟵ "
    u"LongLeftRightArrow ⟷ LongRightArrow ⟶ Longleftarrow ⟸ Longleftrightarrow ⟺ "
    u"Longrightarrow ⟹ Lopf \U0001D543 LowerLeftArrow ↙ LowerRightArrow ↘ Lscr ℒ Lsh ↰ Lstrok Ł "
    u"Lt ≪ Map ⤅ Mcy М MediumSpace \u205F Mellintrf ℳ Mfr \U0001D510 MinusPlus ∓ "
    u"Mopf \U0001D544 Mscr ℳ Mu Μ NJcy Њ Nacute Ń Ncaron Ň Ncedil Ņ Ncy Н "
    u"NegativeMediumSpace \u200B NegativeThickSpace \u200B NegativeThinSpace \u200B "
    u"NegativeVeryThinSpace \u200B NestedGreaterGreater ≫ NestedLessLess ≪ NewLine \n "
    u"Nfr \U0001D511 NoBreak \u2060 NonBreakingSpace \u00A0 Nopf ℕ Not ⫬ NotCongruent ≢ "
    u"NotCupCap ≭ NotDoubleVerticalBar ∦ NotElement ∉ NotEqual ≠ NotEqualTilde ≂\u0338 "
    u"NotExists ∄ NotGreater ≯ NotGreaterEqual ≱ NotGreaterFullEqual ≧\u0338 "
    u"NotGreaterGreater ≫\u0338 NotGreaterLess ≹ NotGreaterSlantEqual ⩾\u0338 NotGreaterTilde ≵ "
    u"NotHumpDownHump ≎\u0338 NotHumpEqual ≏\u0338 NotLeftTriangle ⋪ NotLeftTriangleBar ⧏\u0338 "
    u"NotLeftTriangleEqual ⋬ NotLess ≮ NotLessEqual ≰ NotLessGreater ≸ NotLessLess ≪\u0338 "
    u"NotLessSlantEqual ⩽\u0338 NotLessTilde ≴ NotNestedGreaterGreater ⪢\u0338 "
    u"NotNestedLessLess ⪡\u0338 NotPrecedes ⊀ NotPrecedesEqual ⪯\u0338 NotPrecedesSlantEqual ⋠ "
    u"NotReverseElement ∌ NotRightTriangle ⋫ NotRightTriangleBar ⧐\u0338 "
    u"NotRightTriangleEqual ⋭ NotSquareSubset ⊏\u0338 NotSquareSubsetEqual ⋢ "
    u"NotSquareSuperset ⊐\u0338 NotSquareSupersetEqual ⋣ NotSubset ⊂\u20D2 NotSubsetEqual ⊈ "
    u"NotSucceeds ⊁ NotSucceedsEqual ⪰\u0338 NotSucceedsSlantEqual ⋡ NotSucceedsTilde ≿\u0338 "
    u"NotSuperset ⊃\u20D2 NotSupersetEqual ⊉ NotTilde ≁ NotTildeEqual ≄ NotTildeFullEqual ≇ "
    u"NotTildeTilde ≉ NotVerticalBar ∤ Nscr \U0001D4A9 Nu Ν OElig Œ Ocy О Odblac Ő "
    u"Ofr \U0001D512 Omacr Ō Omega Ω Omicron Ο Oopf \U0001D546 OpenCurlyDoubleQuote “ "
    u"OpenCurlyQuote ‘ Or ⩔ Oscr \U0001D4AA Otimes ⨷ OverBar ‾ OverBrace ⏞ OverBracket ⎴ "
    u"OverParenthesis ⏜ PartialD ∂ Pcy П Pfr \U0001D513 Phi Φ Pi Π PlusMinus ± Poincareplane ℌ "
    u"Popf ℙ Pr ⪻ Precedes ≺ PrecedesEqual ⪯ PrecedesSlantEqual ≼ PrecedesTilde ≾ Prime ″ "
    u"Product ∏ Proportion ∷ Proportional ∝ Pscr \U0001D4AB Psi Ψ Qfr \U0001D514 Qopf ℚ "
    u"Qscr \U0001D4AC RBarr ⤐ Racute Ŕ Rang ⟫ Rarr ↠ Rarrtl ⤖ Rcaron Ř Rcedil Ŗ Rcy Р Re ℜ "
    u"ReverseElement ∋ ReverseEquilibrium ⇋ ReverseUpEquilibrium ⥯ Rfr ℜ Rho Ρ "
    u"RightAngleBracket ⟩ RightArrow → RightArrowBar ⇥ RightArrowLeftArrow ⇄ RightCeiling ⌉ "
    u"RightDoubleBracket ⟧ RightDownTeeVector ⥝ RightDownVector ⇂ RightDownVectorBar ⥕ "
    u"RightFloor ⌋ RightTee ⊢ RightTeeArrow ↦ RightTeeVector ⥛ RightTriangle ⊳ "
    u"RightTriangleBar ⧐ RightTriangleEqual ⊵ RightUpDownVector ⥏ RightUpTeeVector ⥜ "
    u"RightUpVector ↾ RightUpVectorBar ⥔ RightVector ⇀ RightVectorBar ⥓ Rightarrow ⇒ Ropf ℝ "
    u"RoundImplies ⥰ Rrightarrow ⇛ Rscr ℛ Rsh ↱ RuleDelayed ⧴ SHCHcy Щ SHcy Ш SOFTcy Ь Sacute Ś "
    u"Sc ⪼ Scaron Š Scedil Ş Scirc Ŝ Scy С Sfr \U0001D516 ShortDownArrow ↓ ShortLeftArrow ← "
    u"ShortRightArrow → ShortUpArrow ↑ Sigma Σ SmallCircle ∘ Sopf \U0001D54A Sqrt √ Square □ "
    u"SquareIntersection ⊓ SquareSubset ⊏ SquareSubsetEqual ⊑ SquareSuperset ⊐ "
    u"SquareSupersetEqual ⊒ SquareUnion ⊔ Sscr \U0001D4AE Star ⋆ Sub ⋐ Subset ⋐ SubsetEqual ⊆ "
    u"Succeeds ≻ SucceedsEqual ⪰ SucceedsSlantEqual ≽ SucceedsTilde ≿ SuchThat ∋ Sum ∑ Sup ⋑ "
    u"Superset ⊃ SupersetEqual ⊇ Supset ⋑ TRADE ™ TSHcy Ћ TScy Ц Tab \t Tau Τ Tcaron Ť Tcedil Ţ "
    u"Tcy Т Tfr \U0001D517 Therefore ∴ Theta Θ ThickSpace \u205F\u200A ThinSpace \u2009 Tilde ∼ "
    u"TildeEqual ≃ TildeFullEqual ≅ TildeTilde ≈ Topf \U0001D54B TripleDot \u20DB "
    u"Tscr \U0001D4AF Tstrok Ŧ Uarr ↟ Uarrocir ⥉ Ubrcy Ў Ubreve Ŭ Ucy У Udblac Ű Ufr \U0001D518 "
    u"Umacr Ū UnderBar _ UnderBrace ⏟ UnderBracket ⎵ UnderParenthesis ⏝ Union ⋃ UnionPlus ⊎ "
    u"Uogon Ų Uopf \U0001D54C UpArrow ↑ UpArrowBar ⤒ UpArrowDownArrow ⇅ UpDownArrow ↕ "
    u"UpEquilibrium ⥮ UpTee ⊥ UpTeeArrow ↥ Uparrow ⇑ Updownarrow ⇕ UpperLeftArrow ↖ "
    u"UpperRightArrow ↗ Upsi ϒ Upsilon Υ Uring Ů Uscr \U0001D4B0 Utilde Ũ VDash ⊫ Vbar ⫫ Vcy В "
    u"Vdash ⊩ Vdashl ⫦ Vee ⋁ Verbar ‖ Vert ‖ VerticalBar ∣ VerticalLine | VerticalSeparator ❘ "
    u"VerticalTilde ≀ VeryThinSpace \u200A Vfr \U0001D519 Vopf \U0001D54D Vscr \U0001D4B1 "
    u"Vvdash ⊪ Wcirc Ŵ Wedge ⋀ Wfr \U0001D51A Wopf \U0001D54E Wscr \U0001D4B2 Xfr \U0001D51B "
    u"Xi Ξ Xopf \U0001D54F Xscr \U0001D4B3 YAcy Я YIcy Ї YUcy Ю Ycirc Ŷ Ycy Ы Yfr \U0001D51C "
    u"Yopf \U0001D550 Yscr \U0001D4B4 Yuml Ÿ ZHcy Ж Zacute Ź Zcaron Ž Zcy З Zdot Ż "
    u"ZeroWidthSpace \u200B Zeta Ζ Zfr ℨ Zopf ℤ Zscr \U0001D4B5 abreve ă ac ∾ acE ∾\u0333 acd ∿ "
    u"acy а af \u2061 afr \U0001D51E alefsym ℵ aleph ℵ alpha α amacr ā amalg ⨿ and ∧ andand ⩕ "
    u"andd ⩜ andslope ⩘ andv ⩚ ang ∠ ange ⦤ angle ∠ angmsd ∡ angmsdaa ⦨ angmsdab ⦩ angmsdac ⦪ "
    u"angmsdad ⦫ angmsdae ⦬ angmsdaf ⦭ angmsdag ⦮ angmsdah ⦯ angrt ∟ angrtvb ⊾ angrtvbd ⦝ "
    u"angsph ∢ angst Å angzarr ⍼ aogon ą aopf \U0001D552 ap ≈ apE ⩰ apacir ⩯ ape ≊ apid ≋ "
    u"apos ' approx ≈ approxeq ≊ ascr \U0001D4B6 ast * asymp ≈ asympeq ≍ awconint ∳ awint ⨑ "
    u"bNot ⫭ backcong ≌ backepsilon ϶ backprime ‵ backsim ∽ backsimeq ⋍ barvee ⊽ barwed ⌅ "
    u"barwedge ⌅ bbrk ⎵ bbrktbrk ⎶ bcong ≌ bcy б bdquo „ becaus ∵ because ∵ bemptyv ⦰ bepsi ϶ "
    u"bernou ℬ beta β beth ℶ between ≬ bfr \U0001D51F bigcap ⋂ bigcirc ◯ bigcup ⋃ bigodot ⨀ "
    u"bigoplus ⨁ bigotimes ⨂ bigsqcup ⨆ bigstar ★ bigtriangledown ▽ bigtriangleup △ biguplus ⨄ "
    u"bigvee ⋁ bigwedge ⋀ bkarow ⤍ blacklozenge ⧫ blacksquare ▪ blacktriangle ▴ "
    u"blacktriangledown ▾ blacktriangleleft ◂ blacktriangleright ▸ blank ␣ blk12 ▒ blk14 ░ "
    u"blk34 ▓ block █ bne =\u20E5 bnequiv ≡\u20E5 bnot ⌐ bopf \U0001D553 bot ⊥ bottom ⊥ "
    u"bowtie ⋈ boxDL ╗ boxDR ╔ boxDl ╖ boxDr ╓ boxH ═ boxHD ╦ boxHU ╩ boxHd ╤ boxHu ╧ boxUL ╝ "
    u"boxUR ╚ boxUl ╜ boxUr ╙ boxV ║ boxVH ╬ boxVL ╣ boxVR ╠ boxVh ╫ boxVl ╢ boxVr ╟ boxbox ⧉ "
    u"boxdL ╕ boxdR ╒ boxdl ┐ boxdr ┌ boxh ─ boxhD ╥ boxhU ╨ boxhd ┬ boxhu ┴ boxminus ⊟ "
    u"boxplus ⊞ boxtimes ⊠ boxuL ╛ boxuR ╘ boxul ┘ boxur └ boxv │ boxvH ╪ boxvL ╡ boxvR ╞ "
    u"boxvh ┼ boxvl ┤ boxvr ├ bprime ‵ breve ˘ bscr \U0001D4B7 bsemi ⁏ bsim ∽ bsime ⋍ bsol \\ "
    u"bsolb ⧅ bsolhsub ⟈ bull • bullet • bump ≎ bumpE ⪮ bumpe ≏ bumpeq ≏ cacute ć cap ∩ "
    u"capand ⩄ capbrcup ⩉ capcap ⩋ capcup ⩇ capdot ⩀ caps ∩\uFE00 caret ⁁ caron ˇ ccaps ⩍ "
    u"ccaron č ccirc ĉ ccups ⩌ ccupssm ⩐ cdot ċ cemptyv ⦲ centerdot · cfr \U0001D520 chcy ч "
    u"check ✓ checkmark ✓ chi χ cir ○ cirE ⧃ circ ˆ circeq ≗ circlearrowleft ↺ "
    u"circlearrowright ↻ circledR ® circledS Ⓢ circledast ⊛ circledcirc ⊚ circleddash ⊝ cire ≗ "
    u"cirfnint ⨐ cirmid ⫯ cirscir ⧂ clubs ♣ clubsuit ♣ colon : colone ≔ coloneq ≔ comma , "
    u"commat @ comp ∁ compfn ∘ complement ∁ complexes ℂ cong ≅ congdot ⩭ conint ∮ "
    u"copf \U0001D554 coprod ∐ copysr ℗ crarr ↵ cross ✗ cscr \U0001D4B8 csub ⫏ csube ⫑ csup ⫐ "
    u"csupe ⫒ ctdot ⋯ cudarrl ⤸ cudarrr ⤵ cuepr ⋞ cuesc ⋟ cularr ↶ cularrp ⤽ cup ∪ cupbrcap ⩈ "
    u"cupcap ⩆ cupcup ⩊ cupdot ⊍ cupor ⩅ cups ∪\uFE00 curarr ↷ curarrm ⤼ curlyeqprec ⋞ "
    u"curlyeqsucc ⋟ curlyvee ⋎ curlywedge ⋏ curvearrowleft ↶ curvearrowright ↷ cuvee ⋎ cuwed ⋏ "
    u"cwconint ∲ cwint ∱ cylcty ⌭ dArr ⇓ dHar ⥥ dagger † daleth ℸ darr ↓ dash ‐ dashv ⊣ "
    u"dbkarow ⤏ dblac ˝ dcaron ď dcy д dd ⅆ ddagger ‡ ddarr ⇊ ddotseq ⩷ delta δ demptyv ⦱ "
    u"dfisht ⥿ dfr \U0001D521 dharl ⇃ dharr ⇂ diam ⋄ diamond ⋄ diamondsuit ♦ diams ♦ die ¨ "
    u"digamma ϝ disin ⋲ div ÷ divideontimes ⋇ divonx ⋇ djcy ђ dlcorn ⌞ dlcrop ⌍ dollar $ "
    u"dopf \U0001D555 dot ˙ doteq ≐ doteqdot ≑ dotminus ∸ dotplus ∔ dotsquare ⊡ "
    u"doublebarwedge ⌆ downarrow ↓ downdownarrows ⇊ downharpoonleft ⇃ downharpoonright ⇂ "
    u"drbkarow ⤐ drcorn ⌟ drcrop ⌌ dscr \U0001D4B9 dscy ѕ dsol ⧶ dstrok đ dtdot ⋱ dtri ▿ "
    u"dtrif ▾ duarr ⇵ duhar ⥯ dwangle ⦦ dzcy џ dzigrarr ⟿ eDDot ⩷ eDot ≑ easter ⩮ ecaron ě "
    u"ecir ≖ ecolon ≕ ecy э edot ė ee ⅇ efDot ≒ efr \U0001D522 eg ⪚ egs ⪖ egsdot ⪘ el ⪙ "
    u"elinters ⏧ ell ℓ els ⪕ elsdot ⪗ emacr ē empty ∅ emptyset ∅ emptyv ∅ emsp \u2003 "
    u"emsp13 \u2004 emsp14 \u2005 eng ŋ ensp \u2002 eogon ę eopf \U0001D556 epar ⋕ eparsl ⧣ "
    u"eplus ⩱ epsi ε epsilon ε epsiv ϵ eqcirc ≖ eqcolon ≕ eqsim ≂ eqslantgtr ⪖ eqslantless ⪕ "
    u"equals = equest ≟ equiv ≡ equivDD ⩸ eqvparsl ⧥ erDot ≓ erarr ⥱ escr ℯ esdot ≐ esim ≂ "
    u"eta η euro € excl ! exist ∃ expectation ℰ exponentiale ⅇ fallingdotseq ≒ fcy ф female ♀ "
    u"ffilig ﬃ fflig ﬀ ffllig ﬄ ffr \U0001D523 filig ﬁ fjlig fj flat ♭ fllig ﬂ fltns ▱ fnof ƒ "
    u"fopf \U0001D557 forall ∀ fork ⋔ forkv ⫙ fpartint ⨍ frac13 ⅓ frac15 ⅕ frac16 ⅙ frac18 ⅛ "
    u"frac23 ⅔ frac25 ⅖ frac35 ⅗ frac38 ⅜ frac45 ⅘ frac56 ⅚ frac58 ⅝ frac78 ⅞ frasl ⁄ frown ⌢ "
    u"fscr \U0001D4BB gE ≧ gEl ⪌ gacute ǵ gamma γ gammad ϝ gap ⪆ gbreve ğ gcirc ĝ gcy г gdot ġ "
    u"ge ≥ gel ⋛ geq ≥ geqq ≧ geqslant ⩾ ges ⩾ gescc ⪩ gesdot ⪀ gesdoto ⪂ gesdotol ⪄ "
    u"gesl ⋛\uFE00 gesles ⪔ gfr \U0001D524 gg ≫ ggg ⋙ gimel ℷ gjcy ѓ gl ≷ glE ⪒ gla ⪥ glj ⪤ "
    u"gnE ≩ gnap ⪊ gnapprox ⪊ gne ⪈ gneq ⪈ gneqq ≩ gnsim ⋧ gopf \U0001D558 grave ` gscr ℊ "
    u"gsim ≳ gsime ⪎ gsiml ⪐ gtcc ⪧ gtcir ⩺ gtdot ⋗ gtlPar ⦕ gtquest ⩼ gtrapprox ⪆ gtrarr ⥸ "
    u"gtrdot ⋗ gtreqless ⋛ gtreqqless ⪌ gtrless ≷ gtrsim ≳ gvertneqq ≩\uFE00 gvnE ≩\uFE00 "
    u"hArr ⇔ hairsp \u200A half ½ hamilt ℋ hardcy ъ harr ↔ harrcir ⥈ harrw ↭ hbar ℏ hcirc ĥ "
    u"hearts ♥ heartsuit ♥ hellip … hercon ⊹ hfr \U0001D525 hksearow ⤥ hkswarow ⤦ hoarr ⇿ "
    u"homtht ∻ hookleftarrow ↩ hookrightarrow ↪ hopf \U0001D559 horbar ― hscr \U0001D4BD "
    u"hslash ℏ hstrok ħ hybull ⁃ hyphen ‐ ic \u2063 icy и iecy е iff ⇔ ifr \U0001D526 ii ⅈ "
    u"iiiint ⨌ iiint ∭ iinfin ⧜ iiota ℩ ijlig ĳ imacr ī image ℑ imagline ℐ imagpart ℑ imath ı "
    u"imof ⊷ imped Ƶ in ∈ incare ℅ infin ∞ infintie ⧝ inodot ı int ∫ intcal ⊺ integers ℤ "
    u"intercal ⊺ intlarhk ⨗ intprod ⨼ iocy ё iogon į iopf \U0001D55A iota ι iprod ⨼ "
    u"iscr \U0001D4BE isin ∈ isinE ⋹ isindot ⋵ isins ⋴ isinsv ⋳ isinv ∈ it \u2062 itilde ĩ "
    u"iukcy і jcirc ĵ jcy й jfr \U0001D527 jmath ȷ jopf \U0001D55B jscr \U0001D4BF jsercy ј "
    u"jukcy є kappa κ kappav ϰ kcedil ķ kcy к kfr \U0001D528 kgreen ĸ khcy х kjcy ќ "
    u"kopf \U0001D55C kscr \U0001D4C0 lAarr ⇚ lArr ⇐ lAtail ⤛ lBarr ⤎ lE ≦ lEg ⪋ lHar ⥢ "
    u"lacute ĺ laemptyv ⦴ lagran ℒ lambda λ lang ⟨ langd ⦑ langle ⟨ lap ⪅ larr ← larrb ⇤ "
    u"larrbfs ⤟ larrfs ⤝ larrhk ↩ larrlp ↫ larrpl ⤹ larrsim ⥳ larrtl ↢ lat ⪫ latail ⤙ late ⪭ "
    u"lates ⪭\uFE00 lbarr ⤌ lbbrk ❲ lbrace { lbrack [ lbrke ⦋ lbrksld ⦏ lbrkslu ⦍ lcaron ľ "
    u"lcedil ļ lceil ⌈ lcub { lcy л ldca ⤶ ldquo “ ldquor „ ldrdhar ⥧ ldrushar ⥋ ldsh ↲ le ≤ "
    u"leftarrow ← leftarrowtail ↢ leftharpoondown ↽ leftharpoonup ↼ leftleftarrows ⇇ "
    u"leftrightarrow ↔ leftrightarrows ⇆ leftrightharpoons ⇋ leftrightsquigarrow ↭ "
    u"leftthreetimes ⋋ leg ⋚ leq ≤ leqq ≦ leqslant ⩽ les ⩽ lescc ⪨ lesdot ⩿ lesdoto ⪁ "
    u"lesdotor ⪃ lesg ⋚\uFE00 lesges ⪓ lessapprox ⪅ lessdot ⋖ lesseqgtr ⋚ lesseqqgtr ⪋ "
    u"lessgtr ≶ lesssim ≲ lfisht ⥼ lfloor ⌊ lfr \U0001D529 lg ≶ lgE ⪑ lhard ↽ lharu ↼ lharul ⥪ "
    u"lhblk ▄ ljcy љ ll ≪ llarr ⇇ llcorner ⌞ llhard ⥫ lltri ◺ lmidot ŀ lmoust ⎰ lmoustache ⎰ "
    u"lnE ≨ lnap ⪉ lnapprox ⪉ lne ⪇ lneq ⪇ lneqq ≨ lnsim ⋦ loang ⟬ loarr ⇽ lobrk ⟦ "
    u"longleftarrow ⟵ longleftrightarrow ⟷ longmapsto ⟼ longrightarrow ⟶ looparrowleft ↫ "
    u"looparrowright ↬ lopar ⦅ lopf \U0001D55D loplus ⨭ lotimes ⨴ lowast ∗ lowbar _ loz ◊ "
    u"lozenge ◊ lozf ⧫ lpar ( lparlt ⦓ lrarr ⇆ lrcorner ⌟ lrhar ⇋ lrhard ⥭ lrm \u200E lrtri ⊿ "
    u"lsaquo ‹ lscr \U0001D4C1 lsh ↰ lsim ≲ lsime ⪍ lsimg ⪏ lsqb [ lsquo ‘ lsquor ‚ lstrok ł "
    u"ltcc ⪦ ltcir ⩹ ltdot ⋖ lthree ⋋ ltimes ⋉ ltlarr ⥶ ltquest ⩻ ltrPar ⦖ ltri ◃ ltrie ⊴ "
    u"ltrif ◂ lurdshar ⥊ luruhar ⥦ lvertneqq ≨\uFE00 lvnE ≨\uFE00 mDDot ∺ male ♂ malt ✠ "
    u"maltese ✠ map ↦ mapsto ↦ mapstodown ↧ mapstoleft ↤ mapstoup ↥ marker ▮ mcomma ⨩ mcy м "
    u"mdash — measuredangle ∡ mfr \U0001D52A mho ℧ mid ∣ midast * midcir ⫰ minus − minusb ⊟ "
    u"minusd ∸ minusdu ⨪ mlcp ⫛ mldr … mnplus ∓ models ⊧ mopf \U0001D55E mp ∓ mscr \U0001D4C2 "
    u"mstpos ∾ mu μ multimap ⊸ mumap ⊸ nGg ⋙\u0338 nGt ≫\u20D2 nGtv ≫\u0338 nLeftarrow ⇍ "
    u"nLeftrightarrow ⇎ nLl ⋘\u0338 nLt ≪\u20D2 nLtv ≪\u0338 nRightarrow ⇏ nVDash ⊯ nVdash ⊮ "
    u"nabla ∇ nacute ń nang ∠\u20D2 nap ≉ napE ⩰\u0338 napid ≋\u0338 napos ŉ napprox ≉ natur ♮ "
    u"natural ♮ naturals ℕ nbump ≎\u0338 nbumpe ≏\u0338 ncap ⩃ ncaron ň ncedil ņ ncong ≇ "
    u"ncongdot ⩭\u0338 ncup ⩂ ncy н ndash – ne ≠ neArr ⇗ nearhk ⤤ nearr ↗ nearrow ↗ "
    u"nedot ≐\u0338 nequiv ≢ nesear ⤨ nesim ≂\u0338 nexist ∄ nexists ∄ nfr \U0001D52B "
    u"ngE ≧\u0338 nge ≱ ngeq ≱ ngeqq ≧\u0338 ngeqslant ⩾\u0338 nges ⩾\u0338 ngsim ≵ ngt ≯ "
    u"ngtr ≯ nhArr ⇎ nharr ↮ nhpar ⫲ ni ∋ nis ⋼ nisd ⋺ niv ∋ njcy њ nlArr ⇍ nlE ≦\u0338 nlarr ↚ "
    u"nldr ‥ nle ≰ nleftarrow ↚ nleftrightarrow ↮ nleq ≰ nleqq ≦\u0338 nleqslant ⩽\u0338 "
    u"nles ⩽\u0338 nless ≮ nlsim ≴ nlt ≮ nltri ⋪ nltrie ⋬ nmid ∤ nopf \U0001D55F notin ∉ "
    u"notinE ⋹\u0338 notindot ⋵\u0338 notinva ∉ notinvb ⋷ notinvc ⋶ notni ∌ notniva ∌ notnivb ⋾ "
    u"notnivc ⋽ npar ∦ nparallel ∦ nparsl ⫽\u20E5 npart ∂\u0338 npolint ⨔ npr ⊀ nprcue ⋠ "
    u"npre ⪯\u0338 nprec ⊀ npreceq ⪯\u0338 nrArr ⇏ nrarr ↛ nrarrc ⤳\u0338 nrarrw ↝\u0338 "
    u"nrightarrow ↛ nrtri ⋫ nrtrie ⋭ nsc ⊁ nsccue ⋡ nsce ⪰\u0338 nscr \U0001D4C3 nshortmid ∤ "
    u"nshortparallel ∦ nsim ≁ nsime ≄ nsimeq ≄ nsmid ∤ nspar ∦ nsqsube ⋢ nsqsupe ⋣ nsub ⊄ "
    u"nsubE ⫅\u0338 nsube ⊈ nsubset ⊂\u20D2 nsubseteq ⊈ nsubseteqq ⫅\u0338 nsucc ⊁ "
    u"nsucceq ⪰\u0338 nsup ⊅ nsupE ⫆\u0338 nsupe ⊉ nsupset ⊃\u20D2 nsupseteq ⊉ "
    u"nsupseteqq ⫆\u0338 ntgl ≹ ntlg ≸ ntriangleleft ⋪ ntrianglelefteq ⋬ ntriangleright ⋫ "
    u"ntrianglerighteq ⋭ nu ν num # numero № numsp \u2007 nvDash ⊭ nvHarr ⤄ nvap ≍\u20D2 "
    u"nvdash ⊬ nvge ≥\u20D2 nvgt >\u20D2 nvinfin ⧞ nvlArr ⤂ nvle ≤\u20D2 nvlt <\u20D2 "
    u"nvltrie ⊴\u20D2 nvrArr ⤃ nvrtrie ⊵\u20D2 nvsim ∼\u20D2 nwArr ⇖ nwarhk ⤣ nwarr ↖ nwarrow ↖ "
    u"nwnear ⤧ oS Ⓢ oast ⊛ ocir ⊚ ocy о odash ⊝ odblac ő odiv ⨸ odot ⊙ odsold ⦼ oelig œ ofcir ⦿ "
    u"ofr \U0001D52C ogon ˛ ogt ⧁ ohbar ⦵ ohm Ω oint ∮ olarr ↺ olcir ⦾ olcross ⦻ oline ‾ olt ⧀ "
    u"omacr ō omega ω omicron ο omid ⦶ ominus ⊖ oopf \U0001D560 opar ⦷ operp ⦹ oplus ⊕ or ∨ "
    u"orarr ↻ ord ⩝ order ℴ orderof ℴ origof ⊶ oror ⩖ orslope ⩗ orv ⩛ oscr ℴ osol ⊘ otimes ⊗ "
    u"otimesas ⨶ ovbar ⌽ par ∥ parallel ∥ parsim ⫳ parsl ⫽ part ∂ pcy п percnt % period . "
    u"permil ‰ perp ⊥ pertenk ‱ pfr \U0001D52D phi φ phiv ϕ phmmat ℳ phone ☎ pi π pitchfork ⋔ "
    u"piv ϖ planck ℏ planckh ℎ plankv ℏ plus + plusacir ⨣ plusb ⊞ pluscir ⨢ plusdo ∔ plusdu ⨥ "
    u"pluse ⩲ plussim ⨦ plustwo ⨧ pm ± pointint ⨕ popf \U0001D561 pr ≺ prE ⪳ prap ⪷ prcue ≼ "
    u"pre ⪯ prec ≺ precapprox ⪷ preccurlyeq ≼ preceq ⪯ precnapprox ⪹ precneqq ⪵ precnsim ⋨ "
    u"precsim ≾ prime ′ primes ℙ prnE ⪵ prnap ⪹ prnsim ⋨ prod ∏ profalar ⌮ profline ⌒ "
    u"profsurf ⌓ prop ∝ propto ∝ prsim ≾ prurel ⊰ pscr \U0001D4C5 psi ψ puncsp \u2008 "
    u"qfr \U0001D52E qint ⨌ qopf \U0001D562 qprime ⁗ qscr \U0001D4C6 quaternions ℍ quatint ⨖ "
    u"quest ? questeq ≟ rAarr ⇛ rArr ⇒ rAtail ⤜ rBarr ⤏ rHar ⥤ race ∽\u0331 racute ŕ radic √ "
    u"raemptyv ⦳ rang ⟩ rangd ⦒ range ⦥ rangle ⟩ rarr → rarrap ⥵ rarrb ⇥ rarrbfs ⤠ rarrc ⤳ "
    u"rarrfs ⤞ rarrhk ↪ rarrlp ↬ rarrpl ⥅ rarrsim ⥴ rarrtl ↣ rarrw ↝ ratail ⤚ ratio ∶ "
    u"rationals ℚ rbarr ⤍ rbbrk ❳ rbrace } rbrack ] rbrke ⦌ rbrksld ⦎ rbrkslu ⦐ rcaron ř "
    u"rcedil ŗ rceil ⌉ rcub } rcy р rdca ⤷ rdldhar ⥩ rdquo ” rdquor ” rdsh ↳ real ℜ realine ℛ "
    u"realpart ℜ reals ℝ rect ▭ rfisht ⥽ rfloor ⌋ rfr \U0001D52F rhard ⇁ rharu ⇀ rharul ⥬ rho ρ "
    u"rhov ϱ rightarrow → rightarrowtail ↣ rightharpoondown ⇁ rightharpoonup ⇀ "
    u"rightleftarrows ⇄ rightleftharpoons ⇌ rightrightarrows ⇉ rightsquigarrow ↝ "
    u"rightthreetimes ⋌ ring ˚ risingdotseq ≓ rlarr ⇄ rlhar ⇌ rlm \u200F rmoust ⎱ rmoustache ⎱ "
    u"rnmid ⫮ roang ⟭ roarr ⇾ robrk ⟧ ropar ⦆ ropf \U0001D563 roplus ⨮ rotimes ⨵ rpar ) "
    u"rpargt ⦔ rppolint ⨒ rrarr ⇉ rsaquo › rscr \U0001D4C7 rsh ↱ rsqb ] rsquo ’ rsquor ’ "
    u"rthree ⋌ rtimes ⋊ rtri ▹ rtrie ⊵ rtrif ▸ rtriltri ⧎ ruluhar ⥨ rx ℞ sacute ś sbquo ‚ sc ≻ "
    u"scE ⪴ scap ⪸ scaron š sccue ≽ sce ⪰ scedil ş scirc ŝ scnE ⪶ scnap ⪺ scnsim ⋩ scpolint ⨓ "
    u"scsim ≿ scy с sdot ⋅ sdotb ⊡ sdote ⩦ seArr ⇘ searhk ⤥ searr ↘ searrow ↘ semi ; seswar ⤩ "
    u"setminus ∖ setmn ∖ sext ✶ sfr \U0001D530 sfrown ⌢ sharp ♯ shchcy щ shcy ш shortmid ∣ "
    u"shortparallel ∥ sigma σ sigmaf ς sigmav ς sim ∼ simdot ⩪ sime ≃ simeq ≃ simg ⪞ simgE ⪠ "
    u"siml ⪝ simlE ⪟ simne ≆ simplus ⨤ simrarr ⥲ slarr ← smallsetminus ∖ smashp ⨳ smeparsl ⧤ "
    u"smid ∣ smile ⌣ smt ⪪ smte ⪬ smtes ⪬\uFE00 softcy ь sol / solb ⧄ solbar ⌿ sopf \U0001D564 "
    u"spades ♠ spadesuit ♠ spar ∥ sqcap ⊓ sqcaps ⊓\uFE00 sqcup ⊔ sqcups ⊔\uFE00 sqsub ⊏ "
    u"sqsube ⊑ sqsubset ⊏ sqsubseteq ⊑ sqsup ⊐ sqsupe ⊒ sqsupset ⊐ sqsupseteq ⊒ squ □ square □ "
    u"squarf ▪ squf ▪ srarr → sscr \U0001D4C8 ssetmn ∖ ssmile ⌣ sstarf ⋆ star ☆ starf ★ "
    u"straightepsilon ϵ straightphi ϕ strns ¯ sub ⊂ subE ⫅ subdot ⪽ sube ⊆ subedot ⫃ submult ⫁ "
    u"subnE ⫋ subne ⊊ subplus ⪿ subrarr ⥹ subset ⊂ subseteq ⊆ subseteqq ⫅ subsetneq ⊊ "
    u"subsetneqq ⫋ subsim ⫇ subsub ⫕ subsup ⫓ succ ≻ succapprox ⪸ succcurlyeq ≽ succeq ⪰ "
    u"succnapprox ⪺ succneqq ⪶ succnsim ⋩ succsim ≿ sum ∑ sung ♪ sup ⊃ supE ⫆ supdot ⪾ "
    u"supdsub ⫘ supe ⊇ supedot ⫄ suphsol ⟉ suphsub ⫗ suplarr ⥻ supmult ⫂ supnE ⫌ supne ⊋ "
    u"supplus ⫀ supset ⊃ supseteq ⊇ supseteqq ⫆ supsetneq ⊋ supsetneqq ⫌ supsim ⫈ supsub ⫔ "
    u"supsup ⫖ swArr ⇙ swarhk ⤦ swarr ↙ swarrow ↙ swnwar ⤪ target ⌖ tau τ tbrk ⎴ tcaron ť "
    u"tcedil ţ tcy т tdot \u20DB telrec ⌕ tfr \U0001D531 there4 ∴ therefore ∴ theta θ "
    u"thetasym ϑ thetav ϑ thickapprox ≈ thicksim ∼ thinsp \u2009 thkap ≈ thksim ∼ tilde ˜ "
    u"timesb ⊠ timesbar ⨱ timesd ⨰ tint ∭ toea ⤨ top ⊤ topbot ⌶ topcir ⫱ topf \U0001D565 "
    u"topfork ⫚ tosa ⤩ tprime ‴ trade ™ triangle ▵ triangledown ▿ triangleleft ◃ "
    u"trianglelefteq ⊴ triangleq ≜ triangleright ▹ trianglerighteq ⊵ tridot ◬ trie ≜ triminus ⨺ "
    u"triplus ⨹ trisb ⧍ tritime ⨻ trpezium ⏢ tscr \U0001D4C9 tscy ц tshcy ћ tstrok ŧ twixt ≬ "
    u"twoheadleftarrow ↞ twoheadrightarrow ↠ uArr ⇑ uHar ⥣ uarr ↑ ubrcy ў ubreve ŭ ucy у "
    u"udarr ⇅ udblac ű udhar ⥮ ufisht ⥾ ufr \U0001D532 uharl ↿ uharr ↾ uhblk ▀ ulcorn ⌜ "
    u"ulcorner ⌜ ulcrop ⌏ ultri ◸ umacr ū uogon ų uopf \U0001D566 uparrow ↑ updownarrow ↕ "
    u"upharpoonleft ↿ upharpoonright ↾ uplus ⊎ upsi υ upsih ϒ upsilon υ upuparrows ⇈ urcorn ⌝ "
    u"urcorner ⌝ urcrop ⌎ uring ů urtri ◹ uscr \U0001D4CA utdot ⋰ utilde ũ utri ▵ utrif ▴ "
    u"uuarr ⇈ uwangle ⦧ vArr ⇕ vBar ⫨ vBarv ⫩ vDash ⊨ vangrt ⦜ varepsilon ϵ varkappa ϰ "
    u"varnothing ∅ varphi ϕ varpi ϖ varpropto ∝ varr ↕ varrho ϱ varsigma ς varsubsetneq ⊊\uFE00 "
    u"varsubsetneqq ⫋\uFE00 varsupsetneq ⊋\uFE00 varsupsetneqq ⫌\uFE00 vartheta ϑ "
    u"vartriangleleft ⊲ vartriangleright ⊳ vcy в vdash ⊢ vee ∨ veebar ⊻ veeeq ≚ vellip ⋮ "
    u"verbar | vert | vfr \U0001D533 vltri ⊲ vnsub ⊂\u20D2 vnsup ⊃\u20D2 vopf \U0001D567 "
    u"vprop ∝ vrtri ⊳ vscr \U0001D4CB vsubnE ⫋\uFE00 vsubne ⊊\uFE00 vsupnE ⫌\uFE00 "
    u"vsupne ⊋\uFE00 vzigzag ⦚ wcirc ŵ wedbar ⩟ wedge ∧ wedgeq ≙ weierp ℘ wfr \U0001D534 "
    u"wopf \U0001D568 wp ℘ wr ≀ wreath ≀ wscr \U0001D4CC xcap ⋂ xcirc ◯ xcup ⋃ xdtri ▽ "
    u"xfr \U0001D535 xhArr ⟺ xharr ⟷ xi ξ xlArr ⟸ xlarr ⟵ xmap ⟼ xnis ⋻ xodot ⨀ xopf \U0001D569 "
    u"xoplus ⨁ xotime ⨂ xrArr ⟹ xrarr ⟶ xscr \U0001D4CD xsqcup ⨆ xuplus ⨄ xutri △ xvee ⋁ "
    u"xwedge ⋀ yacy я ycirc ŷ ycy ы yfr \U0001D536 yicy ї yopf \U0001D56A yscr \U0001D4CE "
    u"yucy ю zacute ź zcaron ž zcy з zdot ż zeetrf ℨ zeta ζ zfr \U0001D537 zhcy ж zigrarr ⇝ "
    u"zopf \U0001D56B zscr \U0001D4CF zwj \u200D zwnj \u200C";

struct Row {
    std::u16string_view name;
    std::u16string_view characters;
};

constexpr std::u16string_view takeWord(std::u16string_view& text) {
    const std::u16string_view word = text.substr(0, text.find(u' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    return word;
}

constexpr std::size_t countRows(std::u16string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), u' ') + 1) / 2;
}

template <std::size_t kCount>
constexpr std::array<Row, kCount> rowsOf(std::u16string_view text) {
    std::array<Row, kCount> rows{};
    for (Row& row : rows) {
        row.name = takeWord(text);
        row.characters = takeWord(text);
    }
    return rows;
}

constexpr auto kOldRows = rowsOf<countRows(kOldNames)>(kOldNames);
constexpr auto kRows = rowsOf<countRows(kNames)>(kNames);

constexpr bool comesFirst(std::u16string_view first, std::string_view second) {
    return std::lexicographical_compare(first.begin(), first.end(), second.begin(), second.end());
}

template <std::size_t kCount>
std::u16string_view find(const std::array<Row, kCount>& rows, std::string_view name) {
    const auto row = std::lower_bound(
        rows.begin(), rows.end(), name,
        [](const Row& left, std::string_view right) { return comesFirst(left.name, right); });
    const bool isFound = row != rows.end() &&
                         std::equal(row->name.begin(), row->name.end(), name.begin(), name.end());
    return isFound ? row->characters : std::u16string_view();
}

}  // namespace

std::u16string_view charactersOfHtmlName(std::string_view name) {
    const std::u16string_view characters = charactersOfOldHtmlName(name);
    return characters.empty() ? find(kRows, name) : characters;
}

std::u16string_view charactersOfOldHtmlName(std::string_view name) {
    return find(kOldRows, name);
}

}  // namespace platform
