#include "service/AddressBookGenerator.h"

#include <string>

namespace {

const char16_t* const kFirstLatin[] = {u"Fred",   u"Anna",   u"John",  u"Maria", u"Peter", u"Laura",
                                       u"Mark",   u"Sophie", u"David", u"Emma",  u"Paul",  u"Julia",
                                       u"Oliver", u"Clara",  u"Simon", u"Nina",  u"Tom",   u"Alice",
                                       u"Victor", u"Helen",  u"Adam",  u"Grace", u"Leo",   u"Mia"};
const char16_t* const kFirstAccented[] = {
    u"José", u"Zoë",    u"François", u"Jürgen", u"Søren", u"Łukasz", u"Ágnes",  u"Çağla",
    u"Inês", u"Mikaël", u"Renée",    u"Ștefan", u"Björn", u"Đorđe",  u"Hélène", u"Tomáš"};
const char16_t* const kFirstCyrillic[] = {
    u"Иван", u"Мария", u"Алексей", u"Ольга",  u"Дмитрий", u"Елена",   u"Сергей", u"Наталья",
    u"Пётр", u"Анна",  u"Юрий",    u"Ксения", u"Фёдор",   u"Татьяна", u"Борис",  u"Жанна"};
const char16_t* const kLastLatin[] = {
    u"Smith",    u"Johnson",    u"Brown",   u"Taylor",  u"Miller",       u"Wilson",
    u"Moore",    u"Clark",      u"Walker",  u"Hall",    u"Young",        u"King",
    u"Wright",   u"Scott",      u"Green",   u"Baker",   u"Adams",        u"Nelson",
    u"Carter",   u"Mitchell",   u"Roberts", u"O'Brien", u"van der Berg", u"Smith-Jones",
    u"McDonald", u"De la Cruz", u"Fischer"};
const char16_t* const kLastAccented[] = {
    u"Müller", u"García",          u"Dvořák",   u"Lefèvre", u"Øster", u"Nuñez",    u"Šimůnek",
    u"Gómez",  u"Kowalczyk-Łęcka", u"Ångström", u"Popescu", u"Böhm",  u"Ferreira", u"Çelik"};
const char16_t* const kLastCyrillic[] = {
    u"Иванов",  u"Смирнов", u"Кузнецов", u"Попов",  u"Соколов", u"Лебедев",  u"Козлов",
    u"Новиков", u"Морозов", u"Петров",   u"Волков", u"Фёдоров", u"Михайлов", u"Ёлкин"};
const char16_t* const kCompanies[] = {u"Acme Corp",
                                      u"Globex",
                                      u"Initech",
                                      u"Umbrella Ltd",
                                      u"Stark Industries",
                                      u"Wayne Enterprises",
                                      u"Ромашка",
                                      u"ООО Вектор",
                                      u"Société Générale Café",
                                      u"Müller & Söhne GmbH",
                                      u"Blue Sky Travel",
                                      u"City Hospital",
                                      u"Pizza 24"};
const char16_t* const kNicknames[] = {u"Freddy", u"Bob", u"Ваня", u"Jo", u"Doc", u"Lulu"};
const char16_t* const kLabels[] = {u"Office", u"Dacha", u"Boat"};

template <size_t N>
const char16_t* Pick(BookRandom& random, const char16_t* const (&list)[N]) {
    return list[random.Below(N)];
}

template <size_t N>
const char16_t* PickSkewed(BookRandom& random, const char16_t* const (&list)[N]) {
    return list[random.Skewed(N)];
}

std::u16string Digits(BookRandom& random, int n) {
    std::u16string out;
    for (int i = 0; i < n; ++i)
        out.push_back(static_cast<char16_t>(u'0' + random.Below(10)));
    return out;
}

/// A number in one of the usual written forms, national or international.
std::u16string Number(BookRandom& random) {
    std::u16string subscriber = Digits(random, 7);
    std::u16string area = Digits(random, 3);
    switch (random.Below(6)) {
        case 0:
            return u"+7 " + area + u" " + subscriber.substr(0, 3) + u"-" + subscriber.substr(3, 2) +
                   u"-" + subscriber.substr(5);
        case 1:
            return u"8 (" + area + u") " + subscriber;
        case 2:
            return u"+44 20 " + subscriber.substr(0, 4) + u" " + subscriber.substr(4);
        case 3:
            return u"020 " + subscriber;
        case 4:
            return u"+1-" + area + u"-" + subscriber.substr(0, 3) + u"-" + subscriber.substr(3);
        default:
            return u"0" + area + subscriber;
    }
}

void FillName(BookRandom& random, ServiceContact& c) {
    uint32_t script = random.Below(10);
    if (script < 5) {
        c.fields[kFieldFirst] = Pick(random, kFirstLatin);
        c.fields[kFieldLast] = PickSkewed(random, kLastLatin);
    } else if (script < 7) {
        c.fields[kFieldFirst] = Pick(random, kFirstAccented);
        c.fields[kFieldLast] = PickSkewed(random, kLastAccented);
    } else {
        c.fields[kFieldFirst] = Pick(random, kFirstCyrillic);
        c.fields[kFieldLast] = PickSkewed(random, kLastCyrillic);
    }
    if (random.Below(12) == 0)
        c.fields[kFieldMiddle] = Pick(random, kFirstLatin);
    if (random.Below(15) == 0)
        c.fields[kFieldNickname] = Pick(random, kNicknames);
    if (random.Below(40) == 0)
        c.fields[kFieldFirst].clear();
}

}  // namespace

uint32_t BookRandom::Next() {
    state_ = state_ * 6364136223846793005ull + 1442695040888963407ull;
    return static_cast<uint32_t>(state_ >> 33);
}

uint32_t BookRandom::Skewed(uint32_t n) {
    // The cube of a uniform fraction crowds toward 0.
    double u = static_cast<double>(Next()) / 2147483648.0;
    auto index = static_cast<uint32_t>(u * u * u * n);
    return index < n ? index : n - 1;
}

std::vector<ServiceContact> GenerateAddressBook(uint32_t count, uint32_t seed) {
    BookRandom random(seed);
    std::vector<ServiceContact> book(count);
    for (uint32_t i = 0; i < count; ++i) {
        ServiceContact& c = book[i];
        c.oid = i + 1;
        FillName(random, c);
        if (random.Below(5) == 0)
            c.fields[kFieldCompany] = Pick(random, kCompanies);
        if (random.Below(60) == 0) {
            c.fields[kFieldFirst].clear();
            c.fields[kFieldLast].clear();
        }
        uint32_t numbers = 1 + random.Below(3);
        for (uint32_t k = 0; k < numbers; ++k) {
            ServicePhone phone;
            phone.number = Number(random);
            phone.type = static_cast<int32_t>(random.Below(14));
            if (phone.type == 13) {
                phone.type = 100;
                phone.label = Pick(random, kLabels);
            }
            c.phones.push_back(phone);
        }
    }
    return book;
}
