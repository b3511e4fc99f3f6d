#include "contacts/VCardReader.h"

#include <cstring>

#include "contacts/TextDecoding.h"

namespace {

char Upper(char c) {
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

std::string UpperCopy(const std::string& text) {
    std::string out = text;
    for (char& c : out)
        c = Upper(c);
    return out;
}

bool StartsWithIgnoringCase(const std::string& text, const char* word) {
    size_t length = std::strlen(word);
    return text.size() >= length && SameVCardName(text.substr(0, length), word);
}

std::string Trimmed(const std::string& text) {
    size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return std::string();
    size_t last = text.find_last_not_of(" \t");
    return text.substr(first, last - first + 1);
}

/// Splits text at `separator` outside double quotes.
std::vector<std::string> SplitOutsideQuotes(const std::string& text, char separator) {
    std::vector<std::string> parts(1);
    bool quoted = false;
    for (char c : text) {
        if (c == '"')
            quoted = !quoted;
        if (c == separator && !quoted) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

std::string Unquoted(const std::string& text) {
    std::string out;
    for (char c : Trimmed(text)) {
        if (c != '"')
            out += c;
    }
    return out;
}

/// Bare vCard 2.1 parameters that name an encoding rather than a type.
constexpr const char* kBareEncodings[] = {"QUOTED-PRINTABLE", "BASE64", "B", "8BIT", "7BIT"};

std::string DecodeQuotedPrintable(const std::string& text);

/// A phone's own label as some phones write it: X-CUSTOM(CHARSET=...,ENCODING=...,label).
bool ParseCustomLabel(const std::string& text, VCardParam& param) {
    std::string trimmed = Trimmed(text);
    if (!StartsWithIgnoringCase(trimmed, "X-CUSTOM(") || trimmed.back() != ')')
        return false;
    std::vector<std::string> parts =
        SplitOutsideQuotes(trimmed.substr(9, trimmed.size() - 10), ',');
    bool quotedPrintable = false;
    for (const std::string& part : parts) {
        if (SameVCardName(Trimmed(part), "ENCODING=QUOTED-PRINTABLE"))
            quotedPrintable = true;
    }
    std::string label = Trimmed(parts.back());
    param.name = "X-CUSTOM";
    param.values = {quotedPrintable ? DecodeQuotedPrintable(label) : label};
    return true;
}

VCardParam ParseParam(const std::string& text) {
    VCardParam param;
    if (ParseCustomLabel(text, param))
        return param;
    size_t equals = text.find('=');
    std::string values = text;
    if (equals == std::string::npos) {
        param.name = "TYPE";
        for (const char* encoding : kBareEncodings) {
            if (SameVCardName(Trimmed(text), encoding))
                param.name = "ENCODING";
        }
    } else {
        param.name = UpperCopy(Trimmed(text.substr(0, equals)));
        values = text.substr(equals + 1);
    }
    // A quoted TYPE list ("work,voice") is a list all the same.
    char separator = param.name == "TYPE" ? ',' : '\0';
    for (const std::string& value : SplitOutsideQuotes(values, ',')) {
        for (const std::string& part : SplitOutsideQuotes(Unquoted(value), separator)) {
            std::string clean = Trimmed(part);
            if (!clean.empty())
                param.values.push_back(clean);
        }
    }
    return param;
}

bool IsNameChar(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '_' || c == ' ';
}

/// The index of the colon that ends a content line's header: the first one outside double
/// quotes, else the first one; npos when there is none.
size_t HeaderEnd(const std::string& line) {
    bool quoted = false;
    for (size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"')
            quoted = !quoted;
        if (line[i] == ':' && !quoted)
            return i;
    }
    return line.find(':');
}

/// Parses the header (group, name, parameters) that ends at `colon`; false for a bad name.
bool ParseHeader(const std::string& line, size_t colon, VCardProperty& property) {
    std::vector<std::string> parts = SplitOutsideQuotes(line.substr(0, colon), ';');
    std::string name = Trimmed(parts[0]);
    size_t dot = name.rfind('.');
    if (dot != std::string::npos) {
        property.group = name.substr(0, dot);
        name = name.substr(dot + 1);
    }
    if (name.empty() || name[0] == ' ')
        return false;
    for (char c : name) {
        if (!IsNameChar(c))
            return false;
    }
    property.name = UpperCopy(name);
    for (size_t i = 1; i < parts.size(); ++i) {
        if (!Trimmed(parts[i]).empty())
            property.params.push_back(ParseParam(parts[i]));
    }
    return true;
}

/// Parses a content line; false when it is not one (no colon, or a bad name).
bool ParseProperty(const std::string& line, VCardProperty& property) {
    size_t colon = HeaderEnd(line);
    if (colon == std::string::npos || !ParseHeader(line, colon, property))
        return false;
    property.value = line.substr(colon + 1);
    return true;
}

bool IsQuotedPrintable(const VCardProperty& property) {
    const std::string* encoding = property.Param("ENCODING");
    return encoding != nullptr && SameVCardName(*encoding, "QUOTED-PRINTABLE");
}

bool IsBase64(const VCardProperty& property) {
    const std::string* encoding = property.Param("ENCODING");
    return encoding != nullptr &&
           (SameVCardName(*encoding, "BASE64") || SameVCardName(*encoding, "B"));
}

/// The content line being assembled, with its encoding learnt once its header is complete
/// (found without rescanning, so long lines stay linear).
class OpenLine {
  public:
    std::string text;

    void Start(const std::string& line) {
        text = line;
        scanned_ = 0;
        quoted_ = false;
        headerEnd_ = std::string::npos;
        quotedPrintable_ = base64_ = false;
    }
    /// True when a quoted-printable line ends in a soft line break.
    bool EndsInSoftBreak() {
        Learn();
        return quotedPrintable_ && !text.empty() && text.back() == '=';
    }
    /// True when `next` carries on a 2.1 base64 value written without indentation.
    bool ContinuesBase64(const std::string& next) {
        Learn();
        return base64_ && !next.empty() && next.find(':') == std::string::npos;
    }

  private:
    void Learn() {
        if (headerEnd_ != std::string::npos)
            return;
        for (; scanned_ < text.size(); ++scanned_) {
            if (text[scanned_] == '"')
                quoted_ = !quoted_;
            if (text[scanned_] == ':' && !quoted_)
                break;
        }
        if (scanned_ >= text.size())
            return;
        headerEnd_ = scanned_;
        VCardProperty property;
        if (!ParseHeader(text, headerEnd_, property))
            return;
        quotedPrintable_ = IsQuotedPrintable(property);
        base64_ = IsBase64(property);
    }

    size_t scanned_ = 0;
    bool quoted_ = false;
    size_t headerEnd_ = std::string::npos;
    bool quotedPrintable_ = false;
    bool base64_ = false;
};

/// Splits bytes into physical lines: LF, CR LF, CR CR LF and a lone CR each end one line.
std::vector<std::string> PhysicalLines(const std::string& text) {
    std::vector<std::string> lines;
    size_t pos = 0;
    while (pos < text.size()) {
        size_t end = text.find_first_of("\r\n", pos);
        if (end == std::string::npos)
            end = text.size();
        lines.push_back(text.substr(pos, end - pos));
        pos = end;
        while (pos < text.size() && text[pos] == '\r')
            ++pos;
        if (pos < text.size() && text[pos] == '\n')
            ++pos;
    }
    return lines;
}

/// Joins physical lines into content lines: soft breaks of quoted-printable values first (so a
/// continuation that starts with a blank is not taken as folding), then 2.1 base64 runs, then
/// folding (one leading blank or tab removed).
std::vector<std::string> ContentLines(const std::string& text) {
    std::vector<std::string> lines;
    OpenLine open;
    bool any = false;
    for (const std::string& line : PhysicalLines(text)) {
        if (any && open.EndsInSoftBreak()) {
            open.text.pop_back();
            open.text += line;
        } else if (any && open.ContinuesBase64(line)) {
            open.text += line;
        } else if (any && !line.empty() && (line[0] == ' ' || line[0] == '\t')) {
            open.text.append(line, 1, std::string::npos);
        } else {
            if (any)
                lines.push_back(std::move(open.text));
            open.Start(line);
            any = true;
        }
    }
    if (any)
        lines.push_back(std::move(open.text));
    return lines;
}

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | (c >> 6));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | (c >> 12));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (c >> 18));
        out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

/// A UTF-16 file (by its mark, or by zero high bytes in its first characters) as UTF-8.
bool Utf16AsUtf8(const uint8_t* bytes, size_t size, std::string& out) {
    bool little = size >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
    bool big = size >= 2 && bytes[0] == 0xFE && bytes[1] == 0xFF;
    size_t start = (little || big) ? 2 : 0;
    if (!little && !big) {
        if (size < 4 || bytes[0] == 0 || bytes[1] != 0 || bytes[2] == 0 || bytes[3] != 0) {
            return false;
        }
        little = true;
    }
    for (size_t i = start; i + 1 < size; i += 2) {
        char32_t c = little ? (bytes[i] | (bytes[i + 1] << 8)) : ((bytes[i] << 8) | bytes[i + 1]);
        if (c >= 0xD800 && c <= 0xDBFF && i + 3 < size) {
            char32_t low = little ? (bytes[i + 2] | (bytes[i + 3] << 8))
                                  : ((bytes[i + 2] << 8) | bytes[i + 3]);
            if (low >= 0xDC00 && low <= 0xDFFF) {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                i += 2;
            }
        }
        AppendUtf8(out, c);
    }
    return true;
}

int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

std::string DecodeQuotedPrintable(const std::string& text) {
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '=' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
            HexValue(text[i + 2]) >= 0) {
            out += static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]));
            i += 2;
        } else if (!(text[i] == '=' && i + 1 == text.size())) {
            out += text[i];
        }
    }
    return out;
}

int Base64Value(char c) {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    if (c == '+' || c == '-')
        return 62;
    if (c == '/' || c == '_')
        return 63;
    return -1;
}

void DecodeBase64(const std::string& text, size_t from, std::vector<uint8_t>& bytes) {
    uint32_t bits = 0;
    int count = 0;
    for (size_t i = from; i < text.size() && text[i] != '='; ++i) {
        int value = Base64Value(text[i]);
        if (value < 0)
            continue;  // white space and line breaks
        bits = (bits << 6) | static_cast<uint32_t>(value);
        if (++count == 4) {
            bytes.push_back(static_cast<uint8_t>(bits >> 16));
            bytes.push_back(static_cast<uint8_t>(bits >> 8));
            bytes.push_back(static_cast<uint8_t>(bits));
            bits = 0;
            count = 0;
        }
    }
    if (count >= 2)
        bytes.push_back(static_cast<uint8_t>(bits >> (6 * count - 8)));
    if (count == 3)
        bytes.push_back(static_cast<uint8_t>(bits >> 2));
}

void DecodePercent(const std::string& text, size_t from, std::vector<uint8_t>& bytes) {
    for (size_t i = from; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
            HexValue(text[i + 2]) >= 0) {
            bytes.push_back(
                static_cast<uint8_t>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2])));
            i += 2;
        } else {
            bytes.push_back(static_cast<uint8_t>(text[i]));
        }
    }
}

/// Collects cards as their lines arrive: nested cards on a stack, content outside any card in
/// a card of its own.
class CardCollector {
  public:
    void Add(const VCardProperty& property) {
        bool isBegin = property.name == "BEGIN";
        bool isEnd = property.name == "END";
        if ((isBegin || isEnd) && StartsWithIgnoringCase(Trimmed(property.value), "VCARD")) {
            isBegin ? Begin() : End();
            return;
        }
        VCard& card = open_.empty() ? loose_ : open_.back();
        if (property.name == "VERSION")
            card.version = Trimmed(property.value);
        card.properties.push_back(property);
    }
    std::vector<VCard> Finish() {
        FlushLoose();
        while (!open_.empty())
            End();
        return std::move(cards_);
    }

  private:
    void Begin() {
        if (open_.empty())
            FlushLoose();
        open_.emplace_back();
    }
    void End() {
        if (open_.empty()) {
            FlushLoose();
            return;
        }
        cards_.push_back(std::move(open_.back()));
        open_.pop_back();
    }
    void FlushLoose() {
        if (!loose_.properties.empty())
            cards_.push_back(std::move(loose_));
        loose_ = VCard();
    }

    std::vector<VCard> cards_;
    std::vector<VCard> open_;
    VCard loose_;
};

}  // namespace

bool SameVCardName(const std::string& text, const char* word) {
    size_t length = std::strlen(word);
    if (text.size() != length)
        return false;
    for (size_t i = 0; i < length; ++i) {
        if (Upper(text[i]) != Upper(word[i]))
            return false;
    }
    return true;
}

const std::string* VCardProperty::Param(const char* wanted) const {
    for (const VCardParam& param : params) {
        if (param.name == wanted && !param.values.empty())
            return &param.values.front();
    }
    return nullptr;
}

bool VCardProperty::HasType(const char* type) const {
    for (const VCardParam& param : params) {
        if (param.name != "TYPE")
            continue;
        for (const std::string& entry : param.values) {
            if (SameVCardName(entry, type))
                return true;
        }
    }
    return false;
}

const VCardProperty* VCard::Find(const char* wanted) const {
    for (const VCardProperty& property : properties) {
        if (property.name == wanted)
            return &property;
    }
    return nullptr;
}

std::vector<VCard> ReadVCards(const uint8_t* bytes, size_t size) {
    std::string text;
    if (!Utf16AsUtf8(bytes, size, text)) {
        size_t start =
            (size >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF) ? 3 : 0;
        text.assign(reinterpret_cast<const char*>(bytes) + start, size - start);
    }
    CardCollector collector;
    for (const std::string& line : ContentLines(text)) {
        VCardProperty property;
        if (ParseProperty(line, property))
            collector.Add(property);
    }
    return collector.Finish();
}

Str DecodeVCardText(const VCardProperty& property) {
    std::string raw =
        IsQuotedPrintable(property) ? DecodeQuotedPrintable(property.value) : property.value;
    const auto* bytes = reinterpret_cast<const uint8_t*>(raw.data());
    const std::string* charset = property.Param("CHARSET");
    CharsetDecoder decoder =
        charset != nullptr ? FindCharset(charset->data(), charset->size()) : nullptr;
    return decoder != nullptr ? decoder(bytes, raw.size()) : DecodeUndeclared(bytes, raw.size());
}

std::vector<Str> SplitVCardRaw(const Str& value, char16_t separator) {
    std::vector<Str> parts(1);
    for (int i = 0; i < value.Length(); ++i) {
        char16_t c = value[i];
        if (c == separator) {
            parts.emplace_back();
            continue;
        }
        parts.back().Append(c);
        if (c == u'\\' && i + 1 < value.Length())
            parts.back().Append(value[++i]);
    }
    return parts;
}

Str UnescapeVCardText(const Str& value) {
    Str out;
    for (int i = 0; i < value.Length(); ++i) {
        char16_t c = value[i];
        char16_t next = i + 1 < value.Length() ? value[i + 1] : 0;
        if (c == u'\\' && (next == u'n' || next == u'N')) {
            out.Append(u'\n');
            ++i;
        } else if (c == u'\\' && (next == u'\\' || next == u',' || next == u';' || next == u':')) {
            out.Append(next);
            ++i;
        } else {
            out.Append(c);
        }
    }
    return out;
}

std::vector<Str> SplitVCardValue(const Str& value, char16_t separator) {
    std::vector<Str> parts = SplitVCardRaw(value, separator);
    for (Str& part : parts)
        part = UnescapeVCardText(part);
    return parts;
}

bool DecodeVCardBinary(const VCardProperty& property, std::vector<uint8_t>& bytes) {
    bytes.clear();
    std::string value = Trimmed(property.value);
    if (IsBase64(property)) {
        DecodeBase64(value, 0, bytes);
    } else if (StartsWithIgnoringCase(value, "data:")) {
        size_t comma = value.find(',');
        if (comma == std::string::npos)
            return false;
        std::string meta = UpperCopy(value.substr(0, comma));
        if (meta.size() >= 7 && meta.compare(meta.size() - 7, 7, ";BASE64") == 0) {
            DecodeBase64(value, comma + 1, bytes);
        } else {
            DecodePercent(value, comma + 1, bytes);
        }
    } else if (IsQuotedPrintable(property)) {
        std::string decoded = DecodeQuotedPrintable(property.value);
        bytes.assign(decoded.begin(), decoded.end());
    }
    return !bytes.empty();
}
