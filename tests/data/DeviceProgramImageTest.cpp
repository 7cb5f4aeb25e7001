#include "data/DeviceProgramImage.h"
#include "data/AQDataSource.h"
#include "yprotocoll/YAnswers.h"

#include <gtest/gtest.h>

namespace {

using Bytes = std::vector<std::uint8_t>;
using Answers = std::vector<std::shared_ptr<const YAnswer>>;
using Points = std::vector<AQTimePoint>;

DeviceInfo controller(int channels, int maxPoints = 20) {
    return {{1, 4}, 17, 5, channels, maxPoints};
}

Bytes joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::shared_ptr<const YAnswer> taskMode(std::uint8_t minutes, std::uint8_t seconds,
                                        std::uint8_t cold = 0, std::uint8_t warm = 0) {
    return YAnswer::create(51, {minutes, seconds, cold, warm, 0});
}

std::shared_ptr<const YAnswer> channel(std::uint8_t number, const Bytes& entries = {}) {
    return YAnswer::create(47, joined({{number}, entries}));
}

struct Fixture {
    NotificationCenter center;
    AQDataSource document{center};

    std::vector<Bytes> sent(const DeviceInfo& device) const {
        std::vector<Bytes> payloads;
        for (const YCommand& command : DeviceProgramImage::sendCommands(
                 DeviceProgramImage::imageOf(document.contents(), *device.channelCount), device)) {
            EXPECT_EQ(command.id(), payloads.size() == std::size_t(*device.channelCount) ? 50 : 44);
            payloads.push_back(command.data());
        }
        return payloads;
    }
    TransferResult apply(const Answers& answers, int channels) {
        const auto image = DeviceProgramImage::imageOf(answers, controller(channels));
        const auto contents = image ? DeviceProgramImage::contentsOf(*image) : std::nullopt;
        if (!contents)
            return TransferResult::errorInvalidData{};
        document.sequence().replacePoints(contents->points);
        document.setTaskLight(contents->taskLight);
        return TransferResult::ok{};
    }
};

TEST(DeviceProgramImage, checksTheController) {
    const TransferResult ok = TransferResult::ok{};
    const struct {
        std::optional<DeviceInfo> device;
        int points;
        TransferResult load;
        TransferResult send;
    } cases[] = {
        {{}, 7, TransferResult::errorNoDevice{}, TransferResult::errorNoDevice{}},
        {controller(0, 0), 7, TransferResult::errorWrongChannelCount{0},
         TransferResult::errorWrongChannelCount{0}},
        {controller(2), 20, ok, ok},
        {controller(6), 21, ok, TransferResult::errorTooManyPoints{21, 20}},
        {controller(2, 255), 85, ok, TransferResult::errorTooManyPoints{85, 84}},
    };
    for (const auto& c : cases) {
        Fixture f;
        f.document.sequence().replacePoints(Points(static_cast<std::size_t>(c.points)));
        EXPECT_EQ(DeviceProgramImage::checkLoad(c.device), c.load);
        EXPECT_EQ(DeviceProgramImage::checkSend(f.document, c.device), c.send);
    }
}

TEST(DeviceProgramImage, sendsShortPrograms) {
    Fixture f;
    f.document.setTaskLight({{5, 0, 300}, 1.0, 0.25});
    const Bytes task{255, 255, 203, 0};

    f.document.sequence().replacePoints({{{12, 30, 0}, 0.0, 0.8}});
    EXPECT_EQ(f.sent(controller(2)),
              (std::vector<Bytes>{{0, 0, 0, 0, 23, 59, 0}, {1, 0, 0, 246, 23, 59, 246}, task}));
    EXPECT_EQ(f.sent(controller(6)), (std::vector<Bytes>{{0, 0, 0, 254, 23, 59, 0},
                                                         {1, 0, 0, 64, 23, 59, 246},
                                                         {2, 0, 0, 0, 23, 59, 0},
                                                         {3, 0, 0, 204, 23, 59, 204},
                                                         {4, 0, 0, 0, 23, 59, 0},
                                                         {5, 0, 0, 0, 23, 59, 0},
                                                         task}));
    f.document.sequence().replacePoints({});
    EXPECT_EQ(f.sent(controller(2)), (std::vector<Bytes>{{0}, {1}, task}));
    EXPECT_EQ(f.sent(controller(5)),
              (std::vector<Bytes>{{0}, {1}, {2, 0, 0, 254}, {3, 0, 0, 64}, {4, 0, 0, 254}, task}));
}

TEST(DeviceProgramImage, readsTheLight) {
    const auto task = taskMode(1, 0, 254, 0);
    const Bytes half{10, 0, 127};
    const Bytes full{10, 0, 255};
    const struct {
        int channels;
        Answers answers;
        AQTimePoint taskLight;
    } cases[] = {
        // Two channels have it in the task mode, as levels; more that of an empty program in 2
        // and 3.
        {2, {task, channel(0), channel(1)}, {{0, 1, 0}, 1.0, 1.0}},
        {6,
         {task, channel(0), channel(1), channel(2, full), channel(3, half)},
         {{0, 1, 0}, 1.0, 0.5}},
        {2, {taskMode(125, 130), channel(0), channel(1)}, {{1, 7, 10}, 0.5, 0.0}},
    };
    for (const auto& c : cases) {
        Fixture f;
        EXPECT_EQ(f.apply(c.answers, c.channels), TransferResult::ok{});
        EXPECT_EQ(f.document.taskLight(), c.taskLight);
        EXPECT_EQ(f.document.sequence().count(), 0);
    }
    Fixture f; // and a point of cold light alone
    f.apply({task, channel(0, {10, 0, 254}), channel(1, {10, 0, 0})}, 2);
    EXPECT_EQ(f.document.sequence().at(0), (AQTimePoint{{10, 0, 0}, 1.0, 1.0}));
}

TEST(DeviceProgramImage, refusesWhatIsNoProgram) {
    const auto task = taskMode(1, 0);
    const Bytes entry{10, 0, 200};
    const Bytes entries{10, 0, 200, 11, 0, 200};
    const struct {
        const char* name;
        int channels;
        Answers answers;
    } cases[] = {
        {"too few", 2, {task, channel(0)}},
        {"a missing answer", 2, {task, nullptr, channel(1)}},
        {"limits instead of a channel", 2, {task, channel(0), channel(1, {20, 3})}},
        {"channels in the wrong order", 2, {task, channel(1, entry), channel(0, entry)}},
        {"channels 0 and 1 differ", 2, {task, channel(0, entry), channel(1, entries)}},
        {"channels 2 and 3 differ",
         4,
         {task, channel(0), channel(1), channel(2, entry), channel(3)}},
        {"minute 60", 2, {task, channel(0, {10, 60, 1}), channel(1, {10, 0, 1})}},
        {"a late entry without a time",
         4,
         {task, channel(0), channel(1), channel(2, {1, 0, 1, 255, 255, 255}), channel(3, entries)}},
        {"seconds that make a negative hour", 2, {taskMode(0, 60), channel(0), channel(1)}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        Fixture f;
        const auto before = f.document.contents();
        EXPECT_EQ(f.apply(c.answers, c.channels), TransferResult::errorInvalidData{});
        EXPECT_TRUE(f.document.contents() == before);
    }
}

} // namespace
