// Tests of loading from TLS servers: which certificates the platform's classes accept.
#include <sys/wait.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "tests/support/temporary_folder.hpp"
#include "tests/url_loading/raw_server.hpp"
#include "tests/url_loading/url_loading_test.hpp"

namespace test {

namespace {

namespace fs = std::filesystem;

// An HTTPS server with a self-signed certificate.
class SecureServer {
 public:
  // `subject` is the certificate's subject alternative name, such as "IP:127.0.0.1".
  explicit SecureServer(const std::string& subject) {
    const std::string make = "cd " + folder_.path().string() +
                             " && openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2"
                             " -keyout key.pem -out cert.pem -subj /CN=test -addext subjectAltName=" +
                             subject + " >log 2>&1";
    if (std::system(make.c_str()) != 0) throw std::runtime_error("cannot create a certificate");
    start();
  }
  SecureServer(const SecureServer&) = delete;
  SecureServer& operator=(const SecureServer&) = delete;
  ~SecureServer() {
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
    std::fclose(output_);
  }

  std::string address() const { return "https://127.0.0.1:" + port_ + "/"; }
  fs::path certificate() const { return folder_.path() / "cert.pem"; }

 private:
  void start() {
    int pipeEnds[2];
    if (pipe(pipeEnds) != 0) throw std::runtime_error("cannot create a pipe");
    process_ = fork();
    if (process_ == 0) {
      dup2(pipeEnds[1], STDOUT_FILENO);
      if (chdir(folder_.path().c_str()) == 0)
        execlp("openssl", "openssl", "s_server", "-accept", "127.0.0.1:0", "-www", "-key", "key.pem", "-cert",
               "cert.pem", static_cast<char*>(nullptr));
      _exit(1);
    }
    close(pipeEnds[1]);
    output_ = fdopen(pipeEnds[0], "r");
    char line[256];
    while (port_.empty() && std::fgets(line, sizeof line, output_) != nullptr) readPort(line);
    if (port_.empty()) throw std::runtime_error("cannot start the HTTPS server");
  }

  // Reads the port from a line such as "ACCEPT 127.0.0.1:40123". Ignores other lines.
  void readPort(const std::string& line) {
    if (!line.starts_with("ACCEPT")) return;
    port_ = line.substr(line.rfind(':') + 1);
    port_.erase(port_.find_last_not_of(" \r\n") + 1);
  }

  TemporaryFolder folder_;
  pid_t process_ = -1;
  FILE* output_ = nullptr;
  std::string port_;
};

class Certificates : public UrlLoadingTest {
 protected:
  static void trust(const fs::path& certificate) {
    fs::create_directories(testRoot() / "etc/ssl");
    fs::copy_file(certificate, testRoot() / "etc/ssl/cert.pem");
  }
};

TEST_F(Certificates, AreRejectedIfTheirAuthorityIsUnknown) {
  const SecureServer secureServer("IP:127.0.0.1");
  EXPECT_EQ(load(secureServer.address()).error, UrlError::CertificateUntrusted);
}

TEST_F(Certificates, AreTrustedIfTheirAuthorityIsInThePhonesRoot) {
  const SecureServer secureServer("IP:127.0.0.1");
  trust(secureServer.certificate());
  const LoadResult result = load(secureServer.address());
  EXPECT_EQ(result.error, std::nullopt);
  EXPECT_EQ(result.status, 200);
}

TEST_F(Certificates, AreRejectedIfTheyBelongToAnotherHost) {
  const SecureServer secureServer("DNS:elsewhere.example");
  trust(secureServer.certificate());
  EXPECT_EQ(load(secureServer.address()).error, UrlError::CertificateUntrusted);
}

TEST_F(Certificates, AreRequired) {
  const RawServer plainServer("HTTP/1.1 200 OK\r\n\r\n");
  std::string address = plainServer.address();
  address.replace(0, 4, "https");
  EXPECT_EQ(load(address).error, UrlError::SecureConnectionFailed);
}

}  // namespace

}  // namespace test
