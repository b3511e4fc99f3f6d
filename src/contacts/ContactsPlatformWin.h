#pragma once
// The Windows side of ContactsSession: COM, the vCard store of the contacts file (checked for
// changes every second while logged on), the listener window "ORVALIS_SENG_NOTIFY_LISTENER",
// pictures decoded by the imaging component and the system's ANSI code page for notes.

#include <memory>

#include "contacts/ContactsSession.h"

constexpr wchar_t kListenerWindowClass[] = L"ORVALIS_SENG_NOTIFY_LISTENER";

/// The Windows platform (one per process).
ContactsPlatform& WinContactsPlatform();

/// The store WinContactsPlatform creates, on a contacts file of the caller's choice: it checks the
/// file for changes every second while logged on with an owner.
std::unique_ptr<ContactsStore> CreateWatchedStore(const Str& path);

/// Makes WinContactsPlatform the platform of the process's session; call once at start-up,
/// before the first ContactsSession::Get.
void InstallWinContactsPlatform();
