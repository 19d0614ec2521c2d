// BakeIcons OUTPUT NAME=FOLDER/STEM...: draws FOLDER/STEM-16.svg and FOLDER/STEM-22.svg in every size that trays use,
// and writes how much of each pixel is covered, as C++ arrays.

#include <array>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

namespace {

/// A size in whole multiples of a drawing, so that its edges stay on whole pixels; what is left over is margin.
struct Form {
    int size;
    int drawing;
    int scale;
};

constexpr std::array<Form, 6> forms{{{16, 16, 1}, {22, 22, 1}, {24, 22, 1}, {32, 16, 2}, {44, 22, 2}, {48, 22, 2}}};

QImage draw(const std::string& stem, const Form& form) {
    QSvgRenderer drawing(QString::fromStdString(stem + "-" + std::to_string(form.drawing) + ".svg"));
    if (!drawing.isValid()) {
        return {};
    }
    QImage image(form.size, form.size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const int side = form.drawing * form.scale;
    const int margin = (form.size - side) / 2;
    QPainter painter(&image);
    drawing.render(&painter, QRectF(margin, margin, side, side));
    return image;
}

void writeArray(std::ostream& out, const std::string& name, const QImage& image) {
    out << "constexpr std::uint8_t " << name << "[] = {";
    for (int y = 0; y < image.height(); ++y) {
        out << "\n   ";
        for (int x = 0; x < image.width(); ++x) {
            out << " " << qAlpha(image.pixel(x, y)) << ",";
        }
    }
    out << "\n};\n";
}

bool writePicture(std::ostream& out, const std::string& name, const std::string& stem) {
    std::string table = "constexpr BuiltMask built" + name + "[] = {\n";
    for (const auto& form : forms) {
        const auto image = draw(stem, form);
        if (image.isNull()) {
            std::cerr << "cannot draw " << stem << " for size " << form.size << "\n";
            return false;
        }
        const auto array = "built" + name + std::to_string(form.size);
        writeArray(out, array, image);
        table += "    {" + std::to_string(form.size) + ", " + array + "},\n";
    }
    out << table << "};\n";
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    std::ofstream out(argc > 1 ? argv[1] : "");
    for (int index = 2; index < argc; ++index) {
        const std::string argument = argv[index];
        const auto equals = argument.find('=');
        if (!writePicture(out, argument.substr(0, equals), argument.substr(equals + 1))) {
            return EXIT_FAILURE;
        }
    }
    return out.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}
