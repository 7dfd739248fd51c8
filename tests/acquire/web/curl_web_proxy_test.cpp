// A proxy that the environment names is asked for every host but this machine.
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>

#include "acquire/web/curl_web.h"
#include "acquire/web/raw_server.h"
#include "acquire/web/service_web.h"
#include "acquire/web/waiting_person.h"
#include "acquire/web/web_test_tools.h"

namespace brantlow {
namespace {

// A variable of the environment for the length of a test.
class Variable {
  public:
    Variable(const char* name, const std::string& value) : name_(name) {
        if (const char* const former = std::getenv(name)) former_ = former;
        ::setenv(name, value.c_str(), 1);
    }
    ~Variable() {
        if (former_) {
            ::setenv(name_, former_->c_str(), 1);
        } else {
            ::unsetenv(name_);
        }
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

  private:
    const char* name_;
    std::optional<std::string> former_;
};

class CurlWebProxyTest : public ::testing::Test {
  protected:
    ServiceReply Ask(const std::string& url) {
        CurlWeb web(person, time.Time());
        WebServices services(web);
        ServiceRequest request;
        request.url = url;
        request.headers = {"Authorization: Bearer practice-key"};
        return services.Ask(request);
    }

    std::string asked;  // of the proxy
    std::string answer = "HTTP/1.1 200 OK\r\nContent-Length: 12\r\n\r\nby the proxy";
    RawServer proxy{[this](int connection, const std::string& request) {
        asked = request;
        RawServer::Send(connection, answer);
    }};
    Variable none{"no_proxy", ""};
    Variable plain{"http_proxy", proxy.Url("")};
    Variable encrypted{"https_proxy", proxy.Url("")};
    WaitingPerson person;
    SkippedTime time;
};

TEST_F(CurlWebProxyTest, TheProxyIsAskedForAnotherHost) {
    const ServiceReply reply = Ask("http://service.example/bars?symbols=KO");
    EXPECT_EQ(reply.bytes, "by the proxy");
    EXPECT_TRUE(asked.starts_with("GET http://service.example/bars?symbols=KO HTTP/1.1\r\n")) << asked;
}

TEST_F(CurlWebProxyTest, AnEncryptedRequestIsATunnelAndItsKeyIsNotTheProxys) {
    answer = "HTTP/1.1 403 Forbidden\r\nContent-Length: 0\r\n\r\n";
    const ServiceReply reply = Ask("https://service.example/bars?symbols=KO");
    EXPECT_NE(reply.failure, WebFailure::None);
    EXPECT_FALSE(reply.error.empty());
    EXPECT_TRUE(asked.starts_with("CONNECT service.example:443 HTTP/1.1\r\n")) << asked;
    EXPECT_EQ(asked.find("practice-key"), std::string::npos) << asked;
    EXPECT_EQ(asked.find("symbols"), std::string::npos) << asked;
}

TEST_F(CurlWebProxyTest, ThisMachineAndTheNamesOfNoProxyAreAskedThemselves) {
    RawServer own([](int connection, const std::string&) {
        RawServer::Send(connection, "HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\nhere");
    });
    EXPECT_EQ(Ask(own.Url("/")).bytes, "here");
    const Variable left("no_proxy", "service.invalid");
    EXPECT_NE(Ask("http://service.invalid/").failure, WebFailure::None);
    EXPECT_EQ(asked, "");
}

}  // namespace
}  // namespace brantlow
