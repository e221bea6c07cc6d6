// Servers that must show who they are.
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "tests/support/temporary_folder.hpp"
#include "tests/url_loading/loading.hpp"
#include "tests/url_loading/raw_server.hpp"

namespace test {

namespace {

namespace fs = std::filesystem;

// A web server with a certificate of its own making.
class SecureServer {
 public:
  // For whom the certificate is, such as "IP:127.0.0.1".
  explicit SecureServer(const std::string& name) {
    const std::string make = "cd " + folder.path().string() +
                             " && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2"
                             " -keyout key.pem -out cert.pem -subj /CN=test -addext subjectAltName=" +
                             name + " >log 2>&1";
    if (std::system(make.c_str()) != 0) throw std::runtime_error("no certificate can be made");
    start();
  }
  SecureServer(const SecureServer&) = delete;
  SecureServer& operator=(const SecureServer&) = delete;
  ~SecureServer() {
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    std::fclose(output);
  }

  std::string address() const { return "https://127.0.0.1:" + port + "/"; }
  fs::path certificate() const { return folder.path() / "cert.pem"; }

 private:
  void start() {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe can be made");
    process = fork();
    if (process == 0) {
      dup2(ends[1], STDOUT_FILENO);
      if (chdir(folder.path().c_str()) == 0)
        execlp("openssl", "openssl", "s_server", "-accept", "127.0.0.1:0", "-www", "-key", "key.pem", "-cert",
               "cert.pem", static_cast<char*>(nullptr));
      _exit(1);
    }
    close(ends[1]);
    output = fdopen(ends[0], "r");
    char line[256];
    while (port.empty() && std::fgets(line, sizeof line, output) != nullptr) readPort(line);
    if (port.empty()) throw std::runtime_error("the secure server did not start");
  }

  // "ACCEPT 127.0.0.1:40123"
  void readPort(const std::string& line) {
    if (!line.starts_with("ACCEPT")) return;
    port = line.substr(line.rfind(':') + 1);
    port.erase(port.find_last_not_of(" \r\n") + 1);
  }

  TemporaryFolder folder;
  pid_t process = -1;
  FILE* output = nullptr;
  std::string port;
};

class Certificates : public UrlLoading {
 protected:
  static void trust(const fs::path& certificate) {
    fs::create_directories(testRoot() / "etc/ssl");
    fs::copy_file(certificate, testRoot() / "etc/ssl/cert.pem");
  }
};

TEST_F(Certificates, OfUnknownAuthoritiesAreRefused) {
  const SecureServer secure("IP:127.0.0.1");
  EXPECT_EQ(load(secure.address()).error, UrlError::CertificateUntrusted);
}

TEST_F(Certificates, OfTheRootsAuthoritiesAreTrusted) {
  const SecureServer secure("IP:127.0.0.1");
  trust(secure.certificate());
  const Loaded loaded = load(secure.address());
  EXPECT_EQ(loaded.error, std::nullopt);
  EXPECT_EQ(loaded.status, 200);
}

TEST_F(Certificates, OfOtherHostsAreRefused) {
  const SecureServer secure("DNS:elsewhere.example");
  trust(secure.certificate());
  EXPECT_EQ(load(secure.address()).error, UrlError::CertificateUntrusted);
}

TEST_F(Certificates, MustBeShown) {
  const RawServer open("HTTP/1.1 200 OK\r\n\r\n");
  std::string address = open.address();
  address.replace(0, 4, "https");
  EXPECT_EQ(load(address).error, UrlError::SecureConnectionFailed);
}

}  // namespace

}  // namespace test
