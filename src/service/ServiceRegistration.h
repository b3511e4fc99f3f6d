#pragma once
// Where the service library records its registration: under the product's registry root, key
// "Services\OPS", the values "Dll" (the library's file name), "Prefix" and "Index".

namespace service_registration {
constexpr char16_t kKey[] = u"Services\\OPS";
constexpr char16_t kDll[] = u"OrvalisPimServ.dll";
constexpr char16_t kPrefix[] = u"OPS";
constexpr unsigned kIndex = 0;
}  // namespace service_registration

/// Writes the registration values and flushes them; false when the key cannot be written.
bool RecordServiceRegistration();
