#include "platform/richtext/picturegroup.h"

#include "platform/desktop/twips.h"
#include "platform/richtext/boundedimage.h"
#include "platform/richtext/rtftokenizer.h"

#include <algorithm>

namespace {

struct KindWord
{
    QByteArrayView word;
    PictureData::Kind kind;
};
constexpr KindWord KindWords[] = {{"dibitmap", PictureData::Bitmap},
                                  {"jpegblip", PictureData::File},
                                  {"pngblip", PictureData::File},
                                  {"wmetafile", PictureData::Metafile}};

} // namespace

PictureData DataOfPictureGroup(QByteArrayView group)
{
    PictureData data;
    QByteArray digits;
    int depth = 0, pictureDepth = -1;
    RtfTokenizer tokenizer(group);
    for (RtfToken token = tokenizer.Next(); token.kind != RtfToken::End; token = tokenizer.Next()) {
        if (token.kind == RtfToken::Open) ++depth;
        if (token.kind == RtfToken::Close && depth-- == pictureDepth) {
            if (!digits.isEmpty()) break;
            pictureDepth = -1;
        }
        if (token.IsWord("pict")) {
            pictureDepth = depth;
            data.kind = PictureData::Other;
        }
        if (depth != pictureDepth) continue;
        const auto known = std::ranges::find(KindWords, token.bytes, &KindWord::word);
        if (token.kind == RtfToken::Word && known != std::end(KindWords)) data.kind = known->kind;
        if (token.kind == RtfToken::Text) digits += token.bytes;
    }
    data.bytes = QByteArray::fromHex(digits);
    return data;
}

QByteArray ToPictureGroup(const QByteArray& file, QSize pixels, QSize shown)
{
    const bool isJpeg = QByteArrayView(ImageFormatOf(file)) == "jpeg";
    QByteArray group("{\\pict");
    group += isJpeg ? "\\jpegblip" : "\\pngblip";
    const auto write = [&group](const char* word, int number) { group += word + QByteArray::number(number); };
    write("\\picw", pixels.width());
    write("\\pich", pixels.height());
    write("\\picwgoal", shown.width() * TwipsPerPixel);
    write("\\pichgoal", shown.height() * TwipsPerPixel);
    return group + ' ' + file.toHex() + '}';
}
