#pragma once
// Str: the program's one text type. A reference-counted, copy-on-write string of UTF-16 code
// units held as a single pointer to the characters of a heap block whose header (count, length,
// capacity) sits right before them. Copies share the block; writes make it private first.

#include <cstdint>

class Str {
  public:
    /// Header that precedes the characters of every block.
    struct Block {
        int32_t refs;       ///< sharing count; negative = locked (must not be shared)
        uint32_t length;    ///< characters, terminator excluded
        uint32_t capacity;  ///< bytes of the whole block, header included
        char16_t* Text() { return reinterpret_cast<char16_t*>(this + 1); }
    };

    /// Points at the process-wide empty block.
    Str();
    Str(const Str& other);
    /// Moves without touching counts; `other` becomes empty.
    Str(Str&& other) noexcept;
    /// Copies a zero-terminated text; null or "" gives the shared empty block.
    Str(const char16_t* text);  // NOLINT(google-explicit-constructor): texts convert freely
    ~Str();

    Str& operator=(const Str& other);
    Str& operator=(Str&& other) noexcept;
    Str& operator=(const char16_t* text);

    /// The text, always zero-terminated; never null.
    const char16_t* c_str() const { return text_; }
    operator const char16_t*() const { return text_; }  // NOLINT(google-explicit-constructor)
    int Length() const { return static_cast<int>(Header()->length); }
    bool IsEmpty() const { return Header()->length == 0; }
    char16_t operator[](int i) const { return text_[i]; }

    /// Same text: same block, or equal lengths and equal characters.
    bool operator==(const Str& other) const;
    bool operator!=(const Str& other) const { return !(*this == other); }

    /// Drops a non-empty text for the shared empty block; a zero-length private block is kept.
    void Empty();

    void Append(const Str& other);
    /// Null or "" leaves the block untouched.
    void Append(const char16_t* text);
    void Append(char16_t c);
    Str& operator+=(const Str& other) {
        Append(other);
        return *this;
    }
    Str& operator+=(const char16_t* text) {
        Append(text);
        return *this;
    }
    Str& operator+=(char16_t c) {
        Append(c);
        return *this;
    }

    /// A writable buffer of at least `minLength` characters (plus terminator), owned by this Str.
    char16_t* GetBuffer(int minLength);
    /// Ends a GetBuffer write: length = n, or the zero-terminated length when n is -1.
    void ReleaseBuffer(int n = -1);
    /// Makes the block private and marks it unshareable until UnlockBuffer.
    char16_t* LockBuffer();
    void UnlockBuffer();

    /// The first n characters (n < 0 counts as 0); the whole text shares the block.
    Str Left(int n) const;
    /// The last n characters, as Left.
    Str Right(int n) const;
    /// Characters [start, start + count), clamped to the text.
    Str Mid(int start, int count) const;
    /// Index of the first `c` at or after `from`, or -1.
    int Find(char16_t c, int from = 0) const;
    /// Index of the first occurrence of `text` at or after `from`, or -1.
    int Find(const char16_t* text, int from = 0) const;

    void TrimLeft();
    void TrimRight();
    void Trim() {
        TrimRight();
        TrimLeft();
    }

    /// printf-style formatting over char16_t: %s is UTF-16, %S narrow, %c/%C one character.
    /// The result length is measured first, then the text is formatted once into the block.
    void Format(const char16_t* format, ...);

    /// Replaces the text with string resource `id` of the resource module; true when non-empty.
    bool LoadString(uint32_t id);

    // Introspection, for the tests that pin the block rules down.
    int32_t RefCount() const { return Header()->refs; }
    uint32_t Capacity() const { return Header()->capacity; }
    bool SharesBlockWith(const Str& other) const { return text_ == other.text_; }
    bool IsSharedEmptyBlock() const;

    /// Bytes of the block that holds n characters (the size classes of the allocator).
    static uint32_t BlockBytesFor(uint32_t n);

  private:
    Block* Header() const { return reinterpret_cast<Block*>(const_cast<char16_t*>(text_)) - 1; }
    void Release();
    void AttachNew(uint32_t length);
    void Extend(uint32_t n);
    void MakePrivate() { Extend(0); }
    void SetLength(uint32_t n);
    void AssignCopy(const char16_t* text, uint32_t n);

    char16_t* text_;
};

/// Loads string resource `id` into buf (size in characters) from `module`, or from the resource
/// module when none is given. Returns the characters loaded; on failure empties buf, logs
/// the failure, shows a box and returns 0.
int SafeLoadStr(uint32_t id, char16_t* buf, int size, void* module = nullptr);

/// The module texts come from: the one set at start-up, else the program's own (then remembered).
void* ResourceModule();
void SetResourceModule(void* module);
