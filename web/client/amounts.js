// Amounts of money as nurses write and read them. The session has plain numbers: "1234.5".

const thousands = /^-?\d{1,3}(,\d{3})+(\.\d*)?$/;
const decimalComma = /^(-?\d*),(\d{0,2})$/;
const plain = /^-?\d+(\.\d+)?$/;

/** What was typed as the session takes it: a comma before three digits separates thousands, any other is the decimal sign. */
export function plainAmount(text) {
    const typed = text.trim();
    if (thousands.test(typed)) return typed.replaceAll(",", "");
    return typed.replace(decimalComma, "$1.$2");
}

/** A number with thousands separators, two decimals and no fewer than it has; what is no number as it stands. */
export function shownAmount(text) {
    const number = plainAmount(text);
    if (!plain.test(number)) return text;
    return Number(number).toLocaleString("en", {minimumFractionDigits: 2, maximumFractionDigits: 4});
}
