#include "Platform/Linux/EventLoop.h"
#include "Platform/Linux/X11Connection.h"

#include <cerrno>

#include <QProcess>
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace ambrel {
namespace {

/// A display that accepts connections and never says a word; where not listening, it refuses them.
class SilentDisplay {
public:
    explicit SilentDisplay(bool listening) {
        for (std::uint16_t port = 6100; port < 6400 && name_.empty(); ++port) {
            sockaddr_in address{};
            address.sin_family = AF_INET;
            address.sin_port = htons(port);
            address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
            if (bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
                name_ = "127.0.0.1:" + std::to_string(port - 6000);
            }
        }
        EXPECT_TRUE(!listening || listen(socket_, 4) == 0);
    }
    SilentDisplay(const SilentDisplay&) = delete;
    SilentDisplay& operator=(const SilentDisplay&) = delete;
    ~SilentDisplay() { close(socket_); }
    [[nodiscard]] const std::string& name() const { return name_; }

private:
    int socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::string name_;
};

TEST(X11Connection, AServerThatSaysNothingOrRefusesIsAFailure) {
    for (const auto& [listening, code] : {std::pair(true, ETIMEDOUT), std::pair(false, ECONNREFUSED)}) {
        const SilentDisplay display(listening);
        const auto opened = X11Connection::open(display.name(), Seconds(0.2));
        const auto* const failure = std::get_if<FileFailure>(&opened);
        ASSERT_NE(failure, nullptr);
        EXPECT_EQ(failure->code, code);
        EXPECT_NE(failure->description.find(display.name()), std::string::npos) << failure->description;
    }
}

TEST(X11Connection, TellsOnceThatTheServerHasGone) {
    QProcess server;
    server.setStandardErrorFile(QProcess::nullDevice());
    server.start("Xvfb", {"-displayfd", "1", "-screen", "0", "64x64x24", "-nolisten", "tcp"});
    ASSERT_TRUE(server.waitForReadyRead(10000));
    auto opened = X11Connection::open(":" + server.readLine().trimmed().toStdString(), Seconds(5));
    ASSERT_TRUE(std::holds_alternative<std::unique_ptr<X11Connection>>(opened));
    auto& connection = *std::get<std::unique_ptr<X11Connection>>(opened);
    int losses = 0;
    const auto subscription = connection.lost.subscribe([&] { ++losses; });
    connection.start();
    server.kill();
    server.waitForFinished();
    EXPECT_TRUE(runUntil([&] { return losses > 0; }));
    // Requests on a dead connection must not bring it back to life, nor end the process.
    connection.selectEvents(connection.root(), XCB_EVENT_MASK_PROPERTY_CHANGE);
    for (int turn = 0; turn < 5; ++turn) {
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(losses, 1);
}

} // namespace
} // namespace ambrel

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
