// SPDX-License-Identifier: MIT
// Whatever keys are pressed in a text field of the main window, the field keeps its rules.
#include <random>

#include "music/parameters.h"
#include "shell/numbers.h"
#include "ui/ui_program.h"

namespace quavix {
namespace {

using Random = std::mt19937;

QString OneOf(const QStringList& texts, Random& random) {
    return texts[static_cast<qsizetype>(random() % static_cast<std::uint64_t>(texts.size()))];
}

/// A letter as some keyboard gives it, mostly one that belongs into a number.
QString Letter(Random& random) {
    static const QStringList Digits{"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
    static const QStringList Signs{".", ",", "-", "+", "e", "E", "d", " ",
                                   "&", "H", "%", "$", "(", "/", "'", "\""};
    static const QStringList Others{"a",
                                    "Z",
                                    "\t",
                                    QString::fromUtf8("ß"),
                                    QString::fromUtf8("٣"),
                                    QString::fromUtf8("３"),
                                    QString::fromUtf8("½"),
                                    QString::fromUtf8("😀"),
                                    QString::fromUtf8("e\u0301"),
                                    QString(QChar(0x00A0)),
                                    QString(QChar(0x202E)),
                                    QString(QChar(0xD800)),
                                    QString(QChar(0xFFFD))};
    const auto kind = random() % 10;
    return OneOf(kind < 7 ? Digits : kind < 9 ? Signs : Others, random);
}

/// Returns a random text as users may have it in the clipboard.
QString Pasted(Random& random) {
    QString text;
    switch (random() % 6) {
        case 0:
            return QString::number(static_cast<int>(random() % 3000) - 500);
        case 1:
            return QString::number(static_cast<double>(random() % 100000) / 64);
        case 2:
            return "  120\n";
        case 3:
            return "4\r\n5\r\n6";
        case 4:
            for (int i = 0; i < 20'000; ++i)
                text += Letter(random);
            return text;
        default:
            return QString(20'000, QChar('9'));
    }
}

/// One press of a key, or of two at once, to be done to several fields.
struct Press {
    Qt::Key Key = Qt::Key_unknown;
    Qt::KeyboardModifiers Modifiers;
    QString Text;

    void On(QLineEdit& field) const {
        if (Text.isEmpty())
            QTest::keyClick(&field, Key, Modifiers);
        else
            QTest::sendKeyEvent(QTest::Click, &field, Key, Text, Modifiers);
    }
};

Press AnyPress(Random& random) {
    constexpr Qt::KeyboardModifier No = Qt::NoModifier;
    static const std::vector<Press> Editing{
        {Qt::Key_Backspace, No, {}},
        {Qt::Key_Backspace, No, {}},
        {Qt::Key_Delete, No, {}},
        {Qt::Key_Home, No, {}},
        {Qt::Key_End, No, {}},
        {Qt::Key_Left, No, {}},
        {Qt::Key_Right, No, {}},
        {Qt::Key_Left, Qt::ShiftModifier, {}},
        {Qt::Key_Home, Qt::ShiftModifier, {}},
        {Qt::Key_A, Qt::ControlModifier, {}},
        {Qt::Key_Z, Qt::ControlModifier, {}},
        {Qt::Key_X, Qt::ControlModifier, {}},
        {Qt::Key_C, Qt::ControlModifier, {}},
        {Qt::Key_Return, No, {}},
    };
    const auto kind = random() % 20;
    if (kind < 13)
        return {Qt::Key_unknown, No, Letter(random)};
    if (kind < 19)
        return Editing[random() % Editing.size()];
    QApplication::clipboard()->setText(Pasted(random));
    return {Qt::Key_V, Qt::ControlModifier, {}};
}

/// A field of the window, and one beside it without any rules that shows what has been typed.
struct TypedField {
    explicit TypedField(QLineEdit& field) : Field(field), ordinary_(BackColour()) {
        Plain.setMaxLength(Field.maxLength());
        Plain.setText(Field.text());
        Field.setFocus();
        Field.selectAll();
        Plain.selectAll();
    }

    /// The text as it is after a press, before any rule.
    std::string Do(const Press& press) {
        Plain.setCursorPosition(Field.cursorPosition());
        if (Field.hasSelectedText())
            Plain.setSelection(Field.selectionStart(), static_cast<int>(Field.selectedText().size()));
        const QString pasted = QApplication::clipboard()->text();
        press.On(Plain);
        QApplication::clipboard()->setText(pasted);
        press.On(Field);
        return Plain.text().toStdString();
    }
    void Follow() {
        if (Plain.text() != Field.text())
            Plain.setText(Field.text());
    }

    std::string Text() const { return Field.text().toStdString(); }
    QColor BackColour() const { return Field.palette().color(QPalette::Base); }
    bool IsOrange() const { return BackColour() == QColor(255, 128, 0); }
    bool IsOrdinary() const { return BackColour() == ordinary_; }

    QLineEdit& Field;
    QLineEdit Plain;

  private:
    QColor ordinary_;
};

struct RangedField {
    const char* Name;
    Parameter Range;
    std::int32_t (*Value)(const MainFields&);
};

const RangedField RangedFields[] = {
    {"BPMText", parameter::Bpm, [](const MainFields& fields) { return fields.Song.BPM.Get(); }},
    {"AlternateTimeText", parameter::AlternateTime,
     [](const MainFields& fields) { return fields.Song.AlternateTime.Get(); }},
};

constexpr int Presses = 4000;

TEST(TypedText, LeavesRangedFieldsANumberInRangeOrangeOrEmpty) {
    for (const RangedField& ranged : RangedFields) {
        test::UiProgram p;
        p.SetSong({"Quarter C4 - -"});
        TypedField typed(p.Find<QLineEdit>(ranged.Name));
        Random random(41);
        int orange = 0;
        int reverted = 0;
        for (int i = 0; i < Presses; ++i) {
            const std::int32_t before = ranged.Value(p.App.Fields);
            const QColor colourBefore = typed.BackColour();
            const std::string textBefore = typed.Text();
            const std::string text = typed.Do(AnyPress(random));
            const std::int32_t value = ranged.Value(p.App.Fields);
            ASSERT_TRUE(ranged.Range.Contains(value)) << text;
            if (text.empty() || text == textBefore) {
                ASSERT_EQ(typed.Text(), text);
                ASSERT_EQ(value, before);
                ASSERT_EQ(typed.BackColour(), colourBefore);
            } else if (!IsNumeric(text)) {
                ASSERT_EQ(typed.Text(), std::to_string(before)) << text;
                ASSERT_EQ(value, before) << text;
                ASSERT_TRUE(typed.IsOrdinary()) << text;
                ++reverted;
            } else if (ranged.Range.Contains(Val(text))) {
                ASSERT_EQ(typed.Text(), text);
                ASSERT_EQ(value, ToInt32(Val(text))) << text;
                ASSERT_TRUE(typed.IsOrdinary()) << text;
            } else {
                ASSERT_EQ(typed.Text(), text);
                ASSERT_EQ(value, before) << text;
                ASSERT_TRUE(typed.IsOrange()) << text;
                ASSERT_EQ(typed.Field.palette().color(QPalette::Text), QColor(Qt::black)) << text;
                ++orange;
            }
            typed.Follow();
        }
        EXPECT_GT(orange, 100) << ranged.Name;
        EXPECT_GT(reverted, 100) << ranged.Name;
        EXPECT_EQ(p.SongText(), "Quarter C4 - -\n");
        EXPECT_TRUE(p.Boxes.Shown().empty());
    }
}

TEST(TypedText, LeavesTheOctaveAtLeastItsLowestAndTheLabelsRight) {
    test::UiProgram p;
    p.SetSong({"Quarter C4 - -"});
    TypedField typed(p.Find<QLineEdit>("KeyboardOctaveText"));
    Random random(42);
    int orange = 0;
    for (int i = 0; i < Presses; ++i) {
        const std::int32_t before = p.App.Fields.Entry.KeyboardOctave;
        const std::string textBefore = typed.Text();
        const QColor colourBefore = typed.BackColour();
        const std::string text = typed.Do(AnyPress(random));
        const std::int32_t octave = p.App.Fields.Entry.KeyboardOctave;
        std::string expectedText = text;
        std::int32_t expected = before;
        bool isOctave = true;
        if (text.empty() || text == textBefore) {
            isOctave = typed.IsOrdinary();
            ASSERT_EQ(typed.BackColour(), colourBefore) << "nothing has been typed";
        } else if (!IsNumeric(text)) {
            expectedText = std::to_string(before);
        } else if (Val(text) < 2) {
            expectedText = "2";
            expected = 2;
        } else if (RoundHalfEven(Val(text)) > 255) {
            isOctave = false;
            ++orange;
        } else {
            expected = static_cast<std::int32_t>(RoundHalfEven(Val(text)));
        }
        ASSERT_EQ(octave, expected) << text;
        ASSERT_EQ(typed.Text(), expectedText) << text;
        ASSERT_TRUE(isOctave ? typed.IsOrdinary() : typed.IsOrange()) << text;
        ASSERT_EQ(p.TextOf("OctLabel0"), QString::number(octave - 1));
        ASSERT_EQ(p.TextOf("OctLabel1"), QString::number(octave));
        ASSERT_EQ(p.TextOf("OctLabel2"), QString::number(octave + 1));
        typed.Follow();
    }
    EXPECT_GT(orange, 100);
    EXPECT_TRUE(p.Boxes.Shown().empty());
    EXPECT_EQ(p.SongText(), "Quarter C4 - -\n");
}

/// A field that comes into the window needs its rules here.
TEST(TypedText, EveryTextFieldOfTheWindowIsTested) {
    test::UiProgram p;
    QStringList names;
    for (const auto* field : p.Form.findChildren<QLineEdit*>()) {
        if (!field->isReadOnly())
            names += field->objectName();
    }
    names.sort();
    EXPECT_EQ(names, (QStringList{"AlternateTimeText", "BPMText", "KeyboardOctaveText"}));
}

}  // namespace
}  // namespace quavix
