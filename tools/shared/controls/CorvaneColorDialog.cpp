#include "CorvaneColorDialog.h"

#include "ColorBar.h"
#include "ColorButton.h"
#include "ColorField.h"
#include "ColorPalette.h"
#include "ColorSwatch.h"
#include "NumberEdit.h"
#include "QtText.h"
#include "Theme.h"
#include "WindowPlacement.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>

namespace
{
struct SPartField
{
    const char* m_sObject;
    const char* m_sLabel;
    const char* m_sName;
};
constexpr SPartField kFields[] = {{"red", "&Red:", "Red"},
                                  {"green", "&Green:", "Green"},
                                  {"blue", "&Blue:", "Blue"},
                                  {"alpha", "&Alpha:", "Alpha"}};

template <class T> T* Name(T* widget, const char* object, const char* name)
{
    widget->setObjectName(QString::fromLatin1(object));
    widget->setAccessibleName(QString::fromLatin1(name));
    return widget;
}

CNumberEdit* MakePartField(const SPartField& field)
{
    auto* edit = Name(new CNumberEdit(MakeIntegerRule(0, 255)), field.m_sObject, field.m_sName);
    edit->setMaxLength(3);
    edit->SetCorrectWhileTyping(true);
    return edit;
}

QLabel* MakeLabel(const char* text, QWidget* buddy)
{
    auto* label = new QLabel(QString::fromLatin1(text));
    label->setBuddy(buddy);
    return label;
}
} // namespace

CCorvaneColorDialog::CCorvaneColorDialog(CProfile& profile, std::uint32_t packed, QWidget* parent)
    : QDialog(parent), m_Custom(profile), m_pField(Name(new CColorField, "field", "Hue and saturation")),
      m_pValue(Name(new CColorBar, "value", "Value")),
      m_pAlpha(Name(new CColorBar, "alphaBar", "Alpha")), m_Fields{MakePartField(kFields[FIELD_RED]),
                                                                   MakePartField(kFields[FIELD_GREEN]),
                                                                   MakePartField(kFields[FIELD_BLUE]),
                                                                   MakePartField(kFields[FIELD_ALPHA])},
      m_pHex(Name(new QLineEdit, "hex", "Hexadecimal")),
      m_pOld(Name(new CColorButton, "old", "Color before")),
      m_pNew(Name(new CColorButton, "new", "New color")),
      m_pPalette(Name(new CColorPalette(m_Custom), "palette", "Custom colors")),
      m_pDescription(Name(new QLineEdit, "description", "Description"))
{
    setWindowTitle(QStringLiteral("Color"));
    MakeLayout();
    Connect();
    m_Choice.SetColor(UnpackColor(packed));
    m_pOld->SetColor(m_Choice.GetColor());
    m_pDescription->setText(ToQString(m_Custom.GetDescription(m_pPalette->GetSelected())));
    Show();
    m_Fields[FIELD_RED]->setFocus();
    m_Fields[FIELD_RED]->selectAll();
    CWindowPlacement(profile, u"Dialogs\\Color").Keep(*this);
}

CCorvaneColorDialog::~CCorvaneColorDialog() = default;

void CCorvaneColorDialog::MakeLayout()
{
    auto* top = new QHBoxLayout;
    top->addLayout(MakePicker(), 1);
    top->addLayout(MakeNumbers());

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &CCorvaneColorDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CCorvaneColorDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top, 1);
    layout->addLayout(MakeCustom());
    layout->addWidget(buttons);
}

QLayout* CCorvaneColorDialog::MakePicker()
{
    auto* picker = new QHBoxLayout;
    picker->addWidget(m_pField, 1);
    picker->addWidget(m_pValue);
    picker->addWidget(m_pAlpha);
    return picker;
}

QLayout* CCorvaneColorDialog::MakeNumbers()
{
    auto* swatches = new QGridLayout;
    swatches->setHorizontalSpacing(0);
    swatches->setVerticalSpacing(0);
    swatches->addWidget(new QLabel(QStringLiteral("Before")), 0, 0);
    swatches->addWidget(new QLabel(QStringLiteral("New")), 0, 1);
    swatches->addWidget(m_pOld, 1, 0);
    swatches->addWidget(m_pNew, 1, 1);
    m_pOld->setToolTip(QStringLiteral("The color before; a click takes it again"));
    m_pNew->setToolTip(QStringLiteral("The new color"));
    m_pNew->setFocusPolicy(Qt::NoFocus);

    auto* form = new QFormLayout;
    form->addRow(swatches);
    for (int i = 0; i < FIELD_COUNT; ++i)
        form->addRow(MakeLabel(kFields[i].m_sLabel, m_Fields[i]), m_Fields[i]);
    m_pHex->setMaxLength(7);
    m_pHex->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("#?[0-9A-Fa-f]{0,6}")), m_pHex));
    m_pHex->setMinimumWidth(m_pHex->fontMetrics().horizontalAdvance(QStringLiteral("#DDDDDDDD")) +
                            4 * CTheme::kGrid);
    form->addRow(MakeLabel("&Hex:", m_pHex), m_pHex);
    return form;
}

QLayout* CCorvaneColorDialog::MakeCustom()
{
    auto* store = Name(new QPushButton(QStringLiteral("&Set to New")), "storeCustom", "Set to New");
    store->setToolTip(QStringLiteral("Keep the new color in the selected custom color"));
    store->setAutoDefault(false);
    connect(store, &QPushButton::clicked, this, [this] { StoreCustom(); });
    m_pDescription->setMaxLength(256);
    m_pDescription->setPlaceholderText(QStringLiteral("What it is for"));

    auto* line = new QHBoxLayout;
    line->addWidget(MakeLabel("&Description:", m_pDescription));
    line->addWidget(m_pDescription, 1);
    line->addWidget(store);

    auto* custom = new QVBoxLayout;
    custom->addWidget(MakeLabel("&Custom colors:", m_pPalette));
    custom->addWidget(m_pPalette);
    custom->addLayout(line);
    return custom;
}

void CCorvaneColorDialog::Connect()
{
    m_pField->m_OnChanged = [this](int hue, int saturation)
    {
        m_Choice.SetHueAndSaturation(hue, saturation);
        Show();
    };
    m_pValue->m_OnChanged = [this](int value)
    {
        m_Choice.SetValue(value);
        Show();
    };
    m_pAlpha->m_OnChanged = [this](int alpha)
    {
        m_Choice.SetAlpha(alpha);
        Show();
    };
    for (CNumberEdit* field : m_Fields)
        connect(field, &QLineEdit::textEdited, this,
                [this, field]
                {
                    TakeFields();
                    Show(field);
                });
    connect(m_pHex, &QLineEdit::textEdited, this, [this] { TakeHex(); });
    connect(m_pHex, &QLineEdit::editingFinished, this, [this] { Show(); });
    connect(m_pOld, &CColorButton::clicked, this,
            [this]
            {
                m_Choice.SetColor(m_pOld->GetColor());
                Show();
            });
    m_pPalette->m_OnTaken = [this](int index) { TakeCustom(index); };
    m_pPalette->m_OnSelected = [this](int index)
    { m_pDescription->setText(ToQString(m_Custom.GetDescription(index))); };
    connect(m_pDescription, &QLineEdit::textEdited, this,
            [this](const QString& text)
            {
                m_Custom.SetDescription(m_pPalette->GetSelected(), ToText(text));
                m_pPalette->Select(m_pPalette->GetSelected());
            });
}

void CCorvaneColorDialog::TakeFields()
{
    m_Choice.SetColor(QColor(m_Fields[FIELD_RED]->GetInteger(), m_Fields[FIELD_GREEN]->GetInteger(),
                             m_Fields[FIELD_BLUE]->GetInteger(), m_Fields[FIELD_ALPHA]->GetInteger()));
}

void CCorvaneColorDialog::TakeHex()
{
    QString text = m_pHex->text();
    text.remove(u'#');
    if (text.size() != 6)
        return;
    QColor color = QColor::fromRgb(text.toUInt(nullptr, 16));
    color.setAlpha(m_Choice.GetColor().alpha());
    m_Choice.SetColor(color);
    Show(m_pHex);
}

void CCorvaneColorDialog::TakeCustom(int index)
{
    m_Choice.SetColor(m_Custom.GetColor(index));
    Show();
}

void CCorvaneColorDialog::StoreCustom()
{
    m_Custom.SetColor(m_pPalette->GetSelected(), m_Choice.GetColor());
    m_pPalette->Select(m_pPalette->GetSelected());
}

void CCorvaneColorDialog::Show(const QWidget* typing)
{
    const QColor& color = m_Choice.GetColor();
    const int parts[FIELD_COUNT] = {color.red(), color.green(), color.blue(), color.alpha()};
    for (int i = 0; i < FIELD_COUNT; ++i)
    {
        if (m_Fields[i] != typing)
            m_Fields[i]->SetInteger(parts[i]);
    }
    if (m_pHex != typing)
        m_pHex->setText(color.name(QColor::HexRgb).toUpper());
    m_pField->SetChoice(m_Choice);
    CColorChoice brightest = m_Choice;
    brightest.SetValue(255);
    brightest.SetAlpha(255);
    m_pValue->SetColors(Qt::black, brightest.GetColor());
    m_pValue->SetValue(m_Choice.GetValue());
    const QColor opaque(color.red(), color.green(), color.blue());
    m_pAlpha->SetColors(QColor(color.red(), color.green(), color.blue(), 0), opaque);
    m_pAlpha->SetValue(color.alpha());
    m_pNew->SetColor(color);
}

std::uint32_t CCorvaneColorDialog::GetColor() const
{
    return PackColor(m_Choice.GetColor());
}

void CCorvaneColorDialog::accept()
{
    TakeFields();
    QDialog::accept();
}
