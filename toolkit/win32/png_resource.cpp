#include "toolkit/win32/png_resource.h"

static const int kPixelBytes = 4;

namespace
{

// A reference to an object of the platform's decoder.
template <class cInterface> class cReference
{
public:
    cReference() : m_pObject(nullptr) {}
    ~cReference()
    {
        if (m_pObject)
            m_pObject->Release();
    }
    cReference(const cReference &)            = delete;
    cReference &operator=(const cReference &) = delete;

    cInterface  *operator->() const { return m_pObject; }
    cInterface  *Get() const { return m_pObject; }
    cInterface **Out() { return &m_pObject; }

private:
    cInterface *m_pObject;
};

// The decoder belongs to a library that each of its users starts and ends.
class cComGuard
{
public:
    cComGuard() : m_nResult(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
    ~cComGuard()
    {
        if (SUCCEEDED(m_nResult))
            CoUninitialize();
    }
    cComGuard(const cComGuard &)            = delete;
    cComGuard &operator=(const cComGuard &) = delete;

private:
    HRESULT m_nResult;
};

struct cPngFile
{
    BYTE *m_pBytes = nullptr;
    DWORD m_nBytes = 0;
};

}  // namespace

static cPngFile FindPng(unsigned nId)
{
    const HRSRC hFound =
        FindResourceA(nullptr, MAKEINTRESOURCEA(nId), reinterpret_cast<LPCSTR>(RT_RCDATA));
    if (!hFound)
        return {};
    return {static_cast<BYTE *>(LockResource(LoadResource(nullptr, hFound))),
            SizeofResource(nullptr, hFound)};
}

// The rows go from the top down.
static cGdiBitmap CreatePixels(UINT nWidth, UINT nHeight, BYTE **ppPixels)
{
    BITMAPINFO Info              = {};
    Info.bmiHeader.biSize        = sizeof Info.bmiHeader;
    Info.bmiHeader.biWidth       = static_cast<LONG>(nWidth);
    Info.bmiHeader.biHeight      = -static_cast<LONG>(nHeight);
    Info.bmiHeader.biPlanes      = 1;
    Info.bmiHeader.biBitCount    = 8 * kPixelBytes;
    Info.bmiHeader.biCompression = BI_RGB;
    return cGdiBitmap(CreateDIBSection(nullptr, &Info, DIB_RGB_COLORS,
                                       reinterpret_cast<void **>(ppPixels), nullptr, 0));
}

static cGdiBitmap CopyPixels(IWICBitmapSource *pSource)
{
    UINT nWidth  = 0;
    UINT nHeight = 0;
    if (FAILED(pSource->GetSize(&nWidth, &nHeight)))
        return cGdiBitmap();
    BYTE      *pPixels = nullptr;
    cGdiBitmap Bitmap  = CreatePixels(nWidth, nHeight, &pPixels);
    const UINT nStride = nWidth * kPixelBytes;
    if (!Bitmap || FAILED(pSource->CopyPixels(nullptr, nStride, nStride * nHeight, pPixels)))
        return cGdiBitmap();
    return Bitmap;
}

cGdiBitmap LoadPngResource(unsigned nId)
{
    const cPngFile File = FindPng(nId);
    if (!File.m_pBytes)
        return cGdiBitmap();

    const cComGuard                   Com;
    cReference<IWICImagingFactory>    Factory;
    cReference<IWICStream>            Stream;
    cReference<IWICBitmapDecoder>     Decoder;
    cReference<IWICBitmapFrameDecode> Frame;
    cReference<IWICFormatConverter>   Converter;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory,
                                reinterpret_cast<void **>(Factory.Out()))) ||
        FAILED(Factory->CreateStream(Stream.Out())) ||
        FAILED(Stream->InitializeFromMemory(File.m_pBytes, File.m_nBytes)) ||
        FAILED(Factory->CreateDecoderFromStream(Stream.Get(), nullptr,
                                                WICDecodeMetadataCacheOnDemand, Decoder.Out())) ||
        FAILED(Decoder->GetFrame(0, Frame.Out())) ||
        FAILED(Factory->CreateFormatConverter(Converter.Out())) ||
        FAILED(Converter->Initialize(Frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                     WICBitmapDitherTypeNone, nullptr, 0.0,
                                     WICBitmapPaletteTypeCustom)))
        return cGdiBitmap();
    return CopyPixels(Converter.Get());
}
