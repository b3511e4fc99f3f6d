// The built-in keypad rows, kept exactly as the device has them: their irregularities (row 4
// puts the umlauts on the first label line, row 9 labels a letter it lacks, row 15 lacks the
// lower-case dotted z, row 17 lists one letter twice) are data, not mistakes to correct. Row 15
// is stored on the device with four stray characters after key 9; nobody types them, so they
// are left out.

#include "keypad/KeypadLayout.h"

const KeypadRow kKeypadRows[] = {
    // English
    {1,
     0x09,
     {u"ABC/ABC", u"DEF/DEF", u"GHI/GHI", u"JKL/JKL", u"MNO/MNO", u"PQRS/PQRS", u"TUV/TUV",
      u"WXYZ/WXYZ"}},
    // Russian
    {2,
     0x19,
     {u"АБВГ/абвг", u"ДЕЖЗ/деёжз", u"ИКЛ/ийкл", u"МНОП/мноп", u"РСТУ/рсту", u"ФХЦЧ/фхцч",
      u"ШЩЪЫ/шщъы", u"ЬЭЮЯ/ьэюя"}},
    // Russian
    {3,
     0x19,
     {u"АБВГ^ABC/абвгabc", u"ДЕЖЗ^DEF/деёжзdef", u"ИКЛ^GHI/ийклghi", u"МНОП^JKL/мнопjkl",
      u"РСТУ^MNO/рстуmno", u"ФХЦЧ^PQRS/фхцчpqrs", u"ШЩЪЫ^TUV/шщъыtuv", u"ЬЭЮЯ^WXYZ/ьэюяwxyz"}},
    // German
    {4,
     0x07,
     {u"ABCÄ/ABCÄ", u"DEF/DEF", u"GHI/GHI", u"JKL/JKL", u"MNOÖ/MNOÖ", u"PQRSß/PQRSß", u"TUVÜ/TUVÜ",
      u"WXYZ/WXYZ"}},
    // Danish
    {5,
     0x06,
     {u"ABC^ÆÅ/abcåæ", u"DEF/def", u"GHI/ghi", u"JKL/jkl", u"MNO/mno", u"PQRS/pqrs", u"TUV/tuv",
      u"WXYZ^Ø/wxyzø"}},
    // Dutch
    {6,
     0x13,
     {u"ABC^Ä/abcä", u"DEF^ÉÈË/deféèë", u"GHI^Ï/ghiï", u"JKL/jkl", u"MNO^Ô/mnoô", u"PQRS/pqrs",
      u"TUV^ÛÜ/tuvûü", u"WXYZ/wxyz"}},
    // Spanish
    {7,
     0x0A,
     {u"ABC/áabc", u"DEF/deéf", u"GHI/ghií", u"JKL/jkl", u"MNO^Ñ/mnoóñ", u"PQRS/pqrs", u"TUV/tuúüv",
      u"WXYZ/wxyz"}},
    // French
    {8,
     0x0C,
     {u"ABC^ÀÂÇ/abcàâç", u"DEF^ÈÉÊË/defèéêë", u"GHI^ÎÏ/ghiîï", u"JKL/jkl", u"MNOÔ/mnoô",
      u"PQRS/pqrs", u"TUV^ÙÛÜ/tuvùûü", u"WXYZ^Ÿ/wxyzŸ"}},
    // Icelandic
    {9,
     0x0F,
     {u"ABC^Æ/abcæ", u"DEF^Ð/defð", u"GHI/ghi", u"JKL/jkl", u"MNO^Ö/mnoö", u"PQRS/pqrs", u"TUV/tuv",
      u"WXYZÞ/wxyz"}},
    // Italian
    {10,
     0x10,
     {u"ABC/abc", u"DEF/def", u"GHI/ghi", u"JKL/jkl", u"MNO/mno", u"PQRS/pqrs", u"TUV/tuv",
      u"WXYZ/wxyz"}},
    // Norwegian
    {11,
     0x14,
     {u"ABC^ÆÅ/abcåæ", u"DEF/def", u"GHI/ghi", u"JKL/jkl", u"MNO/mno", u"PQRS/pqrs", u"TUV/tuv",
      u"WXYZ^Ø/wxyzø"}},
    // Portuguese
    {12,
     0x16,
     {u"ABC/ÁÂÃÀABCÇ", u"DEF/DEFÉÊ", u"GHI/GHIÍ", u"JKL/JKL", u"MNO/MNOÓÔÕ", u"PQRS/PQRS",
      u"TUV/TUVÚÜ", u"WXYZ/WXYZ"}},
    // Romanian
    {13,
     0x18,
     {u"ABC^ĂÂ/abcăâ", u"DEF/def", u"GHI^Î/ghiî", u"JKL/jkl", u"MNO/mno", u"PQRS^Ş/pqrsş",
      u"TUV^Ţ/tuvţ", u"WXYZ/wxyz"}},
    // Swedish
    {14,
     0x1D,
     {u"ABC^ÅÄ/abcåä", u"DEF/def", u"GHI/ghi", u"JKL/jkl", u"MNOÖ/mnoö", u"PQRS/pqrs", u"TUV/tuv",
      u"WXYZ/wxyz"}},
    // Polish
    {15,
     0x15,
     {u"ABC/AĄBCĆaąbcć", u"DEF/DEĘFdeęf", u"GHI/GHIghi", u"JKL/JKLŁjklł", u"MNO/MNOÓmnoó",
      u"PQRS/PQRSŚpqrsś", u"TUV/TUVtuv", u"WXYZ/WXYZŹŻwxyzź"}},
    // Finnish
    {16,
     0x0B,
     {u"ABC^ÅÄ/abcåä", u"DEF/def", u"GHI/ghi", u"JKL/jkl", u"MNO^Ö/mnoö", u"PQRS^Š/pqrsš",
      u"TUV/tuv", u"WXYZ^Ž/wxyzž"}},
    // none: reachable through "Type" only
    {17,
     0x00,
     {u"ABC/ABCǺĀĂÂÄÅÆÇĄĆĈĊČ", u"DEF/DEFÐĒĔĖĘĚĎ", u"GHI/GHĞĢĜĠĢĤĦIĨĪĬĮİ", u"JKL/JKLĶŁĴĹĻĽĿ",
      u"MNO/MNOŃŅŇŊŌŎŐŒ", u"PQRS/PQRSŔŖŘŚŜŞŠ", u"TUV/TUVŢŤŦŨŪŬŰŲ", u"WXYZ/WXYZŴŶŸŹŻŽ"}},
};

const int kKeypadRowCount = static_cast<int>(sizeof(kKeypadRows) / sizeof(kKeypadRows[0]));

const KeypadRow* FindKeypadRow(int id) {
    for (const KeypadRow& row : kKeypadRows) {
        if (row.id == id)
            return &row;
    }
    return nullptr;
}
