"use strict";

// Texts as the page shows them. Names reach the page by textContent and attributes only.

const NoTime = -Infinity;

const Units = [" KiB", " MiB", " GiB", " TiB", " PiB", " EiB"];

const numberText = new Intl.NumberFormat("en").format;

function sizeText(bytes) {
    if (bytes < 1024)
        return `${bytes} ${bytes === 1 ? "byte" : "bytes"}`;
    let unit = -1;
    do {
        bytes /= 1024;
        ++unit;
    } while (bytes >= 1023.95 && unit < Units.length - 1);
    return bytes.toFixed(1) + Units[unit];
}

function bytesText(bytes) {
    return numberText(bytes) + (bytes === 1 ? " byte" : " bytes");
}

function countText(count, one, many) {
    return `${numberText(count)} ${count === 1 ? one : many}`;
}

// The share of a part in a whole, which may be zero.
function shareText(part, whole) {
    if (whole === 0)
        return "";
    const percent = 100 * part / whole;
    return part > 0 && percent < 0.05 ? "< 0.1 %" : percent.toFixed(1) + " %";
}

// Takes seconds since 1970 in UTC; shows the time zone of the reader.
function timeText(seconds) {
    const date = new Date(seconds * 1000);
    if (Number.isNaN(date.getTime()))
        return "";
    const two = number => String(number).padStart(2, "0");
    return `${date.getFullYear()}-${two(date.getMonth() + 1)}-${two(date.getDate())} ` +
        `${two(date.getHours())}:${two(date.getMinutes())}`;
}

// For attributes, where no element isolates a text: characters that reverse what follows are replaced.
function attributeText(text) {
    return text.replace(/[\u202A-\u202E\u2066-\u2069]/g, "\uFFFD");
}

function element(tag, className = "", text = "") {
    const made = document.createElement(tag);
    if (className !== "")
        made.className = className;
    if (text !== "")
        made.textContent = text;
    return made;
}

function byId(id) {
    return document.getElementById(id);
}

// Calls back once, when there was no further call for this long.
function delayed(milliseconds, call) {
    let timer = 0;
    return (...values) => {
        clearTimeout(timer);
        timer = setTimeout(() => call(...values), milliseconds);
    };
}
