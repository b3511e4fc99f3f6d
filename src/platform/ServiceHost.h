#pragma once
// The service host: the device's in-process host of service libraries, with the device's calls.
// RegisterService loads a service library, finds its entry points by the service's three-letter
// prefix ("OPS_Init", "OPS_Deinit", "OPS_Open", "OPS_Close", "OPS_IOControl"), initialises and
// opens it, and makes it reachable under its device name (prefix, index and ":", "OPS0:").
// ServiceIoControl hands a request to the library's I/O control entry with the open context.
// Services live until DeregisterService or the end of the process.

#include <windows.h>

namespace service_host {

// Entry points of a service library, 64-bit safe (contexts are pointer-sized).
using InitEntry = DWORD_PTR(WINAPI*)(DWORD_PTR context);
using DeinitEntry = BOOL(WINAPI*)(DWORD_PTR initContext);
using OpenEntry = DWORD_PTR(WINAPI*)(DWORD_PTR initContext, DWORD access, DWORD shareMode);
using CloseEntry = BOOL(WINAPI*)(DWORD_PTR openContext);
using IoControlEntry = BOOL(WINAPI*)(DWORD_PTR openContext, DWORD code, BYTE* in, DWORD inSize,
                                     BYTE* out, DWORD outSize, DWORD* returned);

/// Loads `dllName` and starts the service `prefix` + `index`; its handle, or null when the
/// prefix is not three characters, the name is taken, the library or an entry point is
/// missing, or its init or open entry returns 0.
HANDLE RegisterService(LPCWSTR prefix, DWORD index, LPCWSTR dllName, DWORD context);
/// The running service with that device name ("OPS0:"), or INVALID_HANDLE_VALUE. When given,
/// dllName (of *dllBufSize characters) receives the service library's file name.
HANDLE GetServiceHandle(LPCWSTR deviceName, LPWSTR dllName, DWORD* dllBufSize);
/// Passes a request to the service's I/O control entry; FALSE for an unknown handle.
BOOL ServiceIoControl(HANDLE service, DWORD code, LPVOID in, DWORD inSize, LPVOID out,
                      DWORD outSize, LPDWORD returned, LPOVERLAPPED overlapped);
/// Closes, deinitialises and unloads the service.
BOOL DeregisterService(HANDLE service);

}  // namespace service_host
