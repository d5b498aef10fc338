// python.exe for tests under Wine: has python_host.py start the real one with its arguments and current
// folder, and passes on standard input, standard output and exit code over the loopback. The port stands in
// TREMLO_PYTHON_HOST.

#define WIN32_LEAN_AND_MEAN  // else windows.h brings the older winsock.h

#include <cstdlib>
#include <string>
#include <thread>
#include <windows.h>
#include <winsock2.h>

namespace {

std::string Utf8(const std::wstring& text) {
  std::string bytes(3 * text.size(), '\0');
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                       static_cast<int>(bytes.size()), nullptr, nullptr);
  bytes.resize(static_cast<std::size_t>(size));
  return bytes;
}

bool Send(SOCKET host, const char* bytes, std::size_t size) {
  while (size > 0) {
    const int sent = send(host, bytes, static_cast<int>(size), 0);
    if (sent <= 0) return false;
    bytes += sent;
    size -= static_cast<std::size_t>(sent);
  }
  return true;
}

bool Receive(SOCKET host, void* bytes, std::size_t size) {
  auto* at = static_cast<char*>(bytes);
  while (size > 0) {
    const int count = recv(host, at, static_cast<int>(size), 0);
    if (count <= 0) return false;
    at += count;
    size -= static_cast<std::size_t>(count);
  }
  return true;
}

void PassInputOn(SOCKET host) {
  const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
  char block[4096];
  DWORD count = 0;
  while (ReadFile(input, block, sizeof(block), &count, nullptr) && count > 0)
    if (!Send(host, block, count)) return;
  shutdown(host, SD_SEND);
}

/// Never comes back but with the exit code.
int PassOutputBack(SOCKET host) {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  // Frames: what it is ('o' output, 'x' exit code), size or code, bytes.
  struct {
    char what[4];
    unsigned int number;
  } head{};
  std::string bytes;
  while (Receive(host, &head, sizeof(head)) && head.what[0] == 'o') {
    bytes.resize(head.number);
    if (!Receive(host, bytes.data(), bytes.size())) return EXIT_FAILURE;
    DWORD written = 0;
    WriteFile(output, bytes.data(), head.number, &written, nullptr);
  }
  return head.what[0] == 'x' ? static_cast<int>(head.number) : EXIT_FAILURE;
}

}  // namespace

int wmain(int count, wchar_t* words[]) {
  WSADATA data;
  const char* const port = std::getenv("TREMLO_PYTHON_HOST");
  if (!port || WSAStartup(MAKEWORD(2, 2), &data) != 0) return EXIT_FAILURE;
  const SOCKET host = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  address.sin_port = htons(static_cast<u_short>(std::atoi(port)));
  if (connect(host, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0) return EXIT_FAILURE;

  wchar_t folder[MAX_PATH];
  GetCurrentDirectoryW(MAX_PATH, folder);
  std::string call = Utf8(folder);
  for (int i = 1; i < count; ++i) call += '\0' + Utf8(words[i]);
  const auto size = static_cast<unsigned int>(call.size());
  if (!Send(host, reinterpret_cast<const char*>(&size), sizeof(size)) ||
      !Send(host, call.data(), call.size()))
    return EXIT_FAILURE;

  std::thread(PassInputOn, host).detach();
  ExitProcess(static_cast<UINT>(PassOutputBack(host)));
}
