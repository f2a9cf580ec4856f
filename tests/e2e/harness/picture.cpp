#include "harness/picture.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "harness/screen.h"
#include "platform/com_ptr.h"
#include "platform/com_scope.h"

// After windows.h.
#include <wincodec.h>

namespace quillo::e2e {
namespace {

constexpr UINT kBytesPerPixel = 4;

/// The system's library for picture files; empty if the system lacks it.
class ImagingFactory {
  public:
    ImagingFactory() {
        EXPECT_EQ(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                   factory_.PutVoid()),
                  S_OK);
    }
    IWICImagingFactory* operator->() const { return factory_.Get(); }
    explicit operator bool() const { return static_cast<bool>(factory_); }

  private:
    ComScope com_;
    ComPtr<IWICImagingFactory> factory_;
};

std::vector<BYTE> BytesOf(const Picture& picture) {
    std::vector<BYTE> bytes;
    bytes.reserve(picture.pixels.size() * 3);
    for (const COLORREF pixel : picture.pixels) {
        bytes.insert(bytes.end(), {GetBValue(pixel), GetGValue(pixel), GetRValue(pixel)});
    }
    return bytes;
}

}  // namespace

void Picture::Fill(const RECT& area, COLORREF color) {
    for (int y = std::max(area.top, 0L); y < std::min<int>(area.bottom, height); ++y) {
        for (int x = std::max(area.left, 0L); x < std::min<int>(area.right, width); ++x) pixels[Index(x, y)] = color;
    }
}

Picture PictureOfScreen(const RECT& area) {
    const ScreenCopy copy(area);
    Picture picture{copy.Width(), copy.Height(), {}};
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) picture.pixels.push_back(copy.At(x, y));
    }
    return picture;
}

std::optional<Picture> ReadPicture(const std::wstring& path) {
    const ImagingFactory factory;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    if (!factory ||
        FAILED(factory->CreateDecoderFromFilename(path.c_str(), nullptr, GENERIC_READ, WICDecodeMetadataCacheOnDemand,
                                                  decoder.Put())) ||
        FAILED(decoder->GetFrame(0, frame.Put())) || FAILED(factory->CreateFormatConverter(converter.Put())) ||
        FAILED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom))) {
        return std::nullopt;
    }
    UINT width = 0;
    UINT height = 0;
    if (FAILED(converter->GetSize(&width, &height))) return std::nullopt;
    std::vector<BYTE> bytes(static_cast<std::size_t>(width) * height * kBytesPerPixel);
    if (FAILED(converter->CopyPixels(nullptr, width * kBytesPerPixel, static_cast<UINT>(bytes.size()), bytes.data()))) {
        return std::nullopt;
    }
    Picture picture{static_cast<int>(width), static_cast<int>(height), {}};
    for (std::size_t i = 0; i < bytes.size(); i += kBytesPerPixel) {
        picture.pixels.push_back(RGB(bytes[i + 2], bytes[i + 1], bytes[i]));
    }
    return picture;
}

bool WritePicture(const std::wstring& path, const Picture& picture) {
    const ImagingFactory factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    ComPtr<IWICBitmapFrameEncode> frame;
    GUID format = GUID_WICPixelFormat24bppBGR;
    const auto width = static_cast<UINT>(picture.width);
    const auto height = static_cast<UINT>(picture.height);
    std::vector<BYTE> bytes = BytesOf(picture);
    return factory && SUCCEEDED(factory->CreateStream(stream.Put())) &&
           SUCCEEDED(stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE)) &&
           SUCCEEDED(factory->CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Put())) &&
           SUCCEEDED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) &&
           SUCCEEDED(encoder->CreateNewFrame(frame.Put(), nullptr)) && SUCCEEDED(frame->Initialize(nullptr)) &&
           SUCCEEDED(frame->SetSize(width, height)) && SUCCEEDED(frame->SetPixelFormat(&format)) &&
           format == GUID_WICPixelFormat24bppBGR &&
           SUCCEEDED(frame->WritePixels(height, width * 3, static_cast<UINT>(bytes.size()), bytes.data())) &&
           SUCCEEDED(frame->Commit()) && SUCCEEDED(encoder->Commit());
}

}  // namespace quillo::e2e
