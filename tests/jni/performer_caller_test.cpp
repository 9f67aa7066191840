// A caller makes performers through what the library exports, as the platform's side would:
// this program links the shared library and none of the glue's objects.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "host/barcode_lib_performer_android.h"

namespace {

// A host without Android services: its performers never reach a Java VM.
class BareHost : public IVelkoHostEx {
public:
    bool reportError(unsigned short, const unsigned short*, const unsigned short*, long) override {
        return false;
    }
    bool configure(long option) override {
        calls += "configure(" + std::to_string(option) + ") ";
        return true;
    }
    void* queryInterface(long id) override {
        calls += "queryInterface(" + std::to_string(id) + ") ";
        return nullptr;
    }

    std::string calls;
};

TEST(PerformerSlot, HoldsTheFirstPerformerMadeWithAHostWhileItLives) {
    BareHost host;
    const BarcodeLibPerformerAndroid withoutHost(nullptr);
    EXPECT_EQ(g_androidAppPerformer, nullptr);
    auto first = std::make_unique<BarcodeLibPerformerAndroid>(&host);
    const auto second = std::make_unique<BarcodeLibPerformerAndroid>(&host);
    EXPECT_EQ(g_androidAppPerformer, first.get());
    EXPECT_EQ(host.calls, "configure(10) queryInterface(2) configure(10) queryInterface(2) ");

    std::unique_ptr<BarcodeLibPerformerBase> device =
        std::make_unique<BarcodeLibPerformerAndroid>(&host);
    EXPECT_NE(dynamic_cast<BarcodeLibPerformerAndroid*>(device.get()), nullptr);
    EXPECT_EQ(device->OpenDevice(), 0);
    EXPECT_EQ(device->TestDevice(), 0);
    EXPECT_EQ(device->CloseDevice(), 0);
    EXPECT_EQ(device->GetLastError(true), L"");
    device.reset();
    EXPECT_EQ(g_androidAppPerformer, first.get());

    first.reset();
    EXPECT_EQ(g_androidAppPerformer, nullptr) << "no pointer to a performer that is gone";
    const BarcodeLibPerformerAndroid later(&host);
    EXPECT_EQ(g_androidAppPerformer, nullptr) << "a later performer doesn't take the slot";
}

}  // namespace
