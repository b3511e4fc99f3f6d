#pragma once
// SearchServiceClient: the program's side of the contacts search service. It finds the service
// by its device name ("OPS0:"), registering it first when it is not running, and exchanges
// request and reply buffers with it through the platform's service control call. The service
// handle is looked up for every request; only the reply buffers are kept between requests, one
// per request kind, and they only grow. A reply said to be larger than 16 MiB is refused.
//
// What the client takes from the platform is a ServiceCalls: the service host's calls and the
// service library's registration export. The Windows program installs its own
// (SearchServiceClientWin.h); without one every request fails.

#include <cstdint>

#include "base/Array.h"
#include "base/Str.h"
#include "contacts/ContactRecord.h"

/// The service's names and request codes.
namespace search_service {
constexpr char16_t kLibrary[] = u"OrvalisPimServ.dll";
constexpr char kRegistrationExport[] = "MyRegService";
constexpr char16_t kPrefix[] = u"OPS";
constexpr char16_t kDeviceNameFormat[] = u"%s0:";
constexpr uint32_t kSearchText = 5;
constexpr uint32_t kDetails = 6;
constexpr uint32_t kResultStrings = 8;
constexpr uint32_t kSearchNumber = 9;
}  // namespace search_service

/// The platform calls the client makes, with the device's meanings.
class ServiceCalls {
  public:
    virtual ~ServiceCalls() = default;
    /// The running service with that device name ("OPS0:"), or null.
    virtual void* GetServiceHandle(const char16_t* deviceName) = 0;
    /// Loads the library, calls its export with no arguments and frees the library; false when
    /// the library will not load, the export is missing or it returns 0.
    virtual bool CallRegistrationExport(const char16_t* library, const char* exportName) = 0;
    /// Registers the service; its handle, or null on failure.
    virtual void* RegisterService(const char16_t* prefix, uint32_t index, const char16_t* library,
                                  uint32_t context) = 0;
    /// The service control call: true on success; *returned gets the reply's size, or on
    /// failure the size needed (0 when the request itself failed).
    virtual bool IoControl(void* service, uint32_t code, const void* in, uint32_t inBytes,
                           void* out, uint32_t outBytes, uint32_t* returned) = 0;
};

/// A contact's details as the service sends them. The texts are owned (new[]), or null.
class ServiceDetails {
  public:
    ServiceDetails() = default;
    virtual ~ServiceDetails() { Clear(); }
    ServiceDetails(const ServiceDetails&) = delete;
    ServiceDetails& operator=(const ServiceDetails&) = delete;

    /// Sets both values to 0 and frees and forgets the four texts.
    void Clear();
    /// Fills the record from a details reply of `size` bytes. `reply` must be followed by at
    /// least 8 readable bytes (the values are read whole even when fewer arrived).
    void Parse(const uint8_t* reply, uint32_t size);
    /// Empties `phones`, then appends one entry per number and type pair of the phones text:
    /// a one-character type of code 1..13 is type code - 1 with its built-in label; any other
    /// type text is the label itself, with type code 100.
    void GetPhones(Array<ContactPhone>& phones) const;

    uint32_t value1 = 0;
    uint32_t value2 = 0;         ///< high 16 bits: 1-based index into the result strings
    char16_t* text1 = nullptr;   ///< the display name
    char16_t* phones = nullptr;  ///< number and type texts, each zero-terminated, then one more 0
    char16_t* text2 = nullptr;
    char16_t* text3 = nullptr;
};

class SearchServiceClient {
  public:
    explicit SearchServiceClient(ServiceCalls& calls) : calls_(calls) {}
    ~SearchServiceClient();
    SearchServiceClient(const SearchServiceClient&) = delete;
    SearchServiceClient& operator=(const SearchServiceClient&) = delete;

    /// The process's client, on the installed ServiceCalls.
    static SearchServiceClient& Get();
    /// Installs the calls the process's client uses (null: none, every request fails).
    static void SetProcessCalls(ServiceCalls* calls);

    /// Typed-digit search: oids gets the contacts found, texts (emptied only when a reply
    /// arrives) their "+"-separated fragments. True when the service answered.
    bool SearchText(const Str& text, Array<uint32_t>& oids, Array<Str>& texts);
    /// The contacts that own the number.
    bool SearchNumber(const Str& text, Array<uint32_t>& oids);
    /// The details of one contact.
    bool GetDetails(uint32_t oid, ServiceDetails& details);
    /// The strings shown under the last search's results (asked for their size first).
    bool GetResultStrings(Array<Str>& strings);

    /// Sends one request: looks the service up (registering it when it is not running) and
    /// issues the control call. Public for the tests of the protocol.
    bool Send(uint32_t code, const void* in, uint32_t inBytes, void* out, uint32_t outBytes,
              uint32_t* returned);

    /// A kept reply buffer: its bytes and size (allocated with zeroed slack past the size).
    struct Kept {
        uint8_t* data = nullptr;
        uint32_t size = 0;
    };
    const Kept& TextBuffer() const { return textBuffer_; }
    const Kept& NumberBuffer() const { return numberBuffer_; }
    const Kept& DetailsBuffer() const { return detailsBuffer_; }

  private:
    bool Exchange(uint32_t code, const void* in, uint32_t inBytes, Kept& kept, uint32_t* size);

    ServiceCalls& calls_;
    Kept textBuffer_;
    Kept numberBuffer_;
    Kept detailsBuffer_;
};
