#pragma once
// Two contacts as a contacts file holds them, shared by the board's tests on a real file.

// Two numbers (mobile and work), a company and a middle name.
inline constexpr char kAnna[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:anna-1\r\nN:Berg;Anna;Cecilia;;\r\nORG:Dune\r\n"
    "TEL;TYPE=CELL:+46 70 111 22 33\r\nTEL;TYPE=WORK:+46 8 444 55 66\r\nEND:VCARD\r\n";
// One home number.
inline constexpr char kBo[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:bo-1\r\nN:Ek;Bo;;;\r\nTEL;TYPE=HOME:+46 31 777 88 99\r\n"
    "END:VCARD\r\n";
