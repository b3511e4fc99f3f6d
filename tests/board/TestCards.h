#pragma once
// Contacts as a contacts file holds them, shared by the board's tests on a real file.

// Two numbers (mobile and work), a company and a middle name.
inline constexpr char kAnna[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:anna-1\r\nN:Berg;Anna;Cecilia;;\r\nORG:Dune\r\n"
    "TEL;TYPE=CELL:+46 70 111 22 33\r\nTEL;TYPE=WORK:+46 8 444 55 66\r\nEND:VCARD\r\n";
// One home number.
inline constexpr char kBo[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:bo-1\r\nN:Ek;Bo;;;\r\nTEL;TYPE=HOME:+46 31 777 88 99\r\n"
    "END:VCARD\r\n";

// Anna's card gives her sort name in N's SORT-AS, Bo's in phonetic name fields; by their sort
// names Bo comes first, by their composed names Anna does.
inline constexpr char kAnnaSorted[] =
    "BEGIN:VCARD\r\nVERSION:4.0\r\nUID:anna-1\r\nN;SORT-AS=\"Wiberg,Anna\":Berg;Anna;;;\r\n"
    "EMAIL:anna@dune.example\r\nTEL;TYPE=cell:+46 70 111 22 33\r\nEND:VCARD\r\n";
inline constexpr char kBoSorted[] =
    "BEGIN:VCARD\r\nVERSION:3.0\r\nUID:bo-1\r\nN:Ek;Bo;;;\r\nX-PHONETIC-LAST-NAME:Eek\r\n"
    "X-PHONETIC-FIRST-NAME:Boo\r\nTEL;TYPE=HOME:+46 31 777 88 99\r\nEND:VCARD\r\n";
