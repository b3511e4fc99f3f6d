#include "base/Str.h"

#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <new>

#include "base/Alert.h"
#include "base/Chars.h"
#include "base/ErrorLog.h"
#include "base/Format.h"
#include "base/Module.h"

namespace {

constexpr uint32_t kHeaderBytes = sizeof(Str::Block);
static_assert(kHeaderBytes == 12, "three 32-bit header fields");

// The process-wide empty text: never allocated, never freed, never written. Its count stays at
// 100 so it can neither look locked nor reach 1.
alignas(Str::Block) unsigned char gEmptyStorage[64];

Str::Block* SharedEmpty() {
    static Str::Block* block = [] {
        auto* b = new (gEmptyStorage) Str::Block{100, 0, 64};
        b->Text()[0] = 0;
        return b;
    }();
    return block;
}

char16_t* EmptyText() {
    return SharedEmpty()->Text();
}

// Characters a block of `capacity` bytes really holds, terminator excluded.
uint32_t Room(uint32_t capacity) {
    return (capacity - kHeaderBytes) / 2 - 1;
}

Str::Block* AllocateBlock(uint32_t length) {
    uint32_t bytes = Str::BlockBytesFor(length);
    void* memory = std::malloc(bytes);
    if (memory == nullptr) {
        LogError(u"Memory allocation failed", u"Str", u"", 23);
        // Nothing can go on without the block; ending here beats writing through null.
        std::abort();
    }
    return new (memory) Str::Block{1, length, bytes};
}

void* gResourceModule = nullptr;

}  // namespace

uint32_t Str::BlockBytesFor(uint32_t n) {
    uint32_t bytes = (n + 7) * 2;
    if (bytes < 64)
        return 64;
    if (bytes < 128)
        return 128;
    if (bytes < 256)
        return 256;
    if (bytes < 512)
        return 512;
    return bytes;
}

Str::Str() : text_(EmptyText()) {}

Str::Str(const Str& other) : text_(EmptyText()) {
    *this = other;
}

Str::Str(Str&& other) noexcept : text_(other.text_) {
    other.text_ = EmptyText();
}

Str::Str(const char16_t* text) : text_(EmptyText()) {
    *this = text;
}

Str::~Str() {
    Release();
}

bool Str::IsSharedEmptyBlock() const {
    return Header() == SharedEmpty();
}

void Str::Release() {
    Block* block = Header();
    if (block == SharedEmpty())
        return;
    // A locked block has exactly one owner, so releasing it frees it too.
    if (block->refs <= 1) {
        block->~Block();
        std::free(block);
    } else {
        --block->refs;
    }
    text_ = EmptyText();
}

void Str::AttachNew(uint32_t length) {
    Block* block = AllocateBlock(length);
    text_ = block->Text();
}

void Str::SetLength(uint32_t n) {
    Header()->length = n;
    text_[n] = 0;
}

void Str::AssignCopy(const char16_t* text, uint32_t n) {
    Release();
    if (n == 0)
        return;
    AttachNew(n);
    std::memcpy(text_, text, n * sizeof(char16_t));
    text_[n] = 0;
}

Str& Str::operator=(const Str& other) {
    if (text_ == other.text_)
        return *this;
    Block* mine = Header();
    Block* theirs = other.Header();
    bool locked = (mine->refs < 0 && mine != SharedEmpty()) || theirs->refs < 0;
    if (!locked) {
        Release();
        text_ = other.text_;
        if (theirs != SharedEmpty())
            ++theirs->refs;
        return *this;
    }
    uint32_t n = theirs->length;
    // The device compares the length in characters with the capacity in bytes; that test is
    // kept, and a block that passes it without really having the room is replaced, not overrun.
    bool keep = mine != SharedEmpty() && mine->refs <= 1 && n <= mine->capacity &&
                n <= Room(mine->capacity);
    if (!keep) {
        Release();
        AttachNew(n);
    }
    std::memmove(text_, other.text_, n * sizeof(char16_t));
    SetLength(n);
    return *this;
}

Str& Str::operator=(Str&& other) noexcept {
    if (Header()->refs < 0 || other.Header()->refs < 0)
        return *this = other;  // locked: copy
    if (this != &other) {
        Release();
        text_ = other.text_;
        other.text_ = EmptyText();
    }
    return *this;
}

Str& Str::operator=(const char16_t* text) {
    if (text == text_)
        return *this;
    Str copy;  // the source may point into this Str's own block
    copy.AssignCopy(text, static_cast<uint32_t>(chars::Length(text)));
    return *this = static_cast<Str&&>(copy);
}

bool Str::operator==(const Str& other) const {
    if (text_ == other.text_)
        return true;
    if (Header()->length != other.Header()->length)
        return false;
    return std::memcmp(text_, other.text_, Header()->length * sizeof(char16_t)) == 0;
}

void Str::Empty() {
    if (Header()->length == 0)
        return;
    Release();
}

void Str::Extend(uint32_t n) {
    Block* block = Header();
    uint32_t length = block->length;
    if (block != SharedEmpty() && block->refs == 1 && block->capacity >= (length + n + 7) * 2) {
        block->length = length + n;
        return;
    }
    Block* fresh = AllocateBlock(length + n);
    std::memcpy(fresh->Text(), text_, (length + 1) * sizeof(char16_t));
    Release();
    text_ = fresh->Text();
}

char16_t* Str::GetBuffer(int minLength) {
    uint32_t length = Header()->length;
    uint32_t extra = minLength > static_cast<int>(length) ? minLength - length : 0;
    Block* block = Header();
    if (block != SharedEmpty() && block->refs == 1 && block->capacity >= (length + extra + 7) * 2) {
        return text_;
    }
    Block* fresh = AllocateBlock(length + extra);
    std::memcpy(fresh->Text(), text_, (length + 1) * sizeof(char16_t));
    fresh->length = length;  // the text written so far; ReleaseBuffer sets the new length
    Release();
    text_ = fresh->Text();
    return text_;
}

void Str::ReleaseBuffer(int n) {
    if (Header()->refs > 1 || IsSharedEmptyBlock())
        MakePrivate();
    uint32_t room = Room(Header()->capacity);
    uint32_t length = n < 0 ? 0 : static_cast<uint32_t>(n);
    if (n == -1) {
        while (length < room && text_[length] != 0)
            ++length;
    }
    SetLength(length < room ? length : room);
}

char16_t* Str::LockBuffer() {
    if (Header()->refs >= 0)
        MakePrivate();
    Header()->refs = -1;
    return text_;
}

void Str::UnlockBuffer() {
    if (Header()->refs < 0 && !IsSharedEmptyBlock())
        Header()->refs = 1;
}

void Str::Append(const Str& other) {
    if (other.IsEmpty())
        return;
    Str source(other);  // keeps the text alive when appending to itself
    uint32_t old = Header()->length;
    uint32_t n = source.Header()->length;
    Extend(n);
    std::memcpy(text_ + old, source.text_, n * sizeof(char16_t));
    text_[old + n] = 0;
}

void Str::Append(const char16_t* text) {
    if (text == nullptr || text[0] == 0)
        return;
    Append(Str(text));
}

void Str::Append(char16_t c) {
    uint32_t old = Header()->length;
    Extend(1);
    text_[old] = c;
    text_[old + 1] = 0;
}

Str Str::Left(int n) const {
    if (n < 0)
        n = 0;
    if (n >= Length())
        return *this;
    Str result;
    result.AssignCopy(text_, static_cast<uint32_t>(n));
    return result;
}

Str Str::Right(int n) const {
    if (n < 0)
        n = 0;
    if (n >= Length())
        return *this;
    Str result;
    result.AssignCopy(text_ + Length() - n, static_cast<uint32_t>(n));
    return result;
}

Str Str::Mid(int start, int count) const {
    if (start < 0)
        start = 0;
    if (start > Length())
        start = Length();
    if (count < 0 || count > Length() - start)
        count = Length() - start;
    if (start == 0 && count == Length())
        return *this;
    Str result;
    result.AssignCopy(text_ + start, static_cast<uint32_t>(count));
    return result;
}

int Str::Find(char16_t c, int from) const {
    for (int i = from < 0 ? 0 : from; i < Length(); ++i) {
        if (text_[i] == c)
            return i;
    }
    return -1;
}

int Str::Find(const char16_t* text, int from) const {
    size_t n = chars::Length(text);
    if (n == 0)
        return from >= 0 && from <= Length() ? from : -1;
    for (int i = from < 0 ? 0 : from; i + static_cast<int>(n) <= Length(); ++i) {
        if (chars::CompareN(text_ + i, text, n) == 0)
            return i;
    }
    return -1;
}

void Str::TrimLeft() {
    uint32_t skip = 0;
    uint32_t length = Header()->length;
    while (skip < length && chars::IsSpace(text_[skip]))
        ++skip;
    if (skip == 0)
        return;
    MakePrivate();
    std::memmove(text_, text_ + skip, (length - skip + 1) * sizeof(char16_t));
    Header()->length = length - skip;
}

void Str::TrimRight() {
    uint32_t end = Header()->length;
    while (end > 0 && chars::IsSpace(text_[end - 1]))
        --end;
    if (end == Header()->length)
        return;
    MakePrivate();
    SetLength(end);
}

void Str::Format(const char16_t* format, ...) {
    va_list args;
    va_start(args, format);
    if (format == nullptr || format[0] == 0) {
        GetBuffer(0);
        ReleaseBuffer(0);
    } else {
        size_t total = FormatEstimate(format, args);
        char16_t* buffer = GetBuffer(static_cast<int>(total));
        FormatInto(buffer, total + 1, format, args);
        ReleaseBuffer(-1);
    }
    va_end(args);
}

bool Str::LoadString(uint32_t id) {
    constexpr int kChunk = 256;
    char16_t local[kChunk];
    int loaded = SafeLoadStr(id, local, kChunk);
    if (kChunk - loaded >= 2) {
        *this = local;
        return loaded > 0;
    }
    // The text may have been cut at the buffer's end: load again into ever larger buffers.
    int size = kChunk;
    do {
        size += kChunk;
        loaded = SafeLoadStr(id, GetBuffer(size), size);
    } while (size - loaded < 2);
    ReleaseBuffer(loaded);
    return loaded > 0;
}

void* ResourceModule() {
    if (gResourceModule == nullptr)
        gResourceModule = ProgramModule();
    return gResourceModule;
}

void SetResourceModule(void* module) {
    gResourceModule = module;
}

int SafeLoadStr(uint32_t id, char16_t* buf, int size, void* module) {
    if (module == nullptr)
        module = ResourceModule();
    int loaded = size > 0 ? LoadResourceText(module, id, buf, size) : 0;
    if (loaded > 0)
        return loaded;
    if (size > 0)
        buf[0] = 0;
    Str message;
    message.Format(u"Resource loading fail (id: %d hInst: %x)", static_cast<int>(id),
                   static_cast<unsigned>(reinterpret_cast<uintptr_t>(module)));
    LogError(message, u"Str", u"", 174);
    Str box;
    box.Format(u"SafeLoadStr failed, resid: %d", static_cast<int>(id));
    ShowAlert(box, u"Contactbook Tracer", kAlertOk);
    return 0;
}
