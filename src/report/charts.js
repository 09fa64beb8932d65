// The largest files and the sizes by extension. The extensions with the most bytes have a colour each, which the
// treemap and the table use too.

const LargestFiles = 25;
const ListedExtensions = 20;
const Colours = 8;

// The kind of a file is the number of its extension's colour from 1, or 0 for all others.
class Kinds {
    constructor(entries) {
        const {count, size} = entries;
        const sums = new Map();
        for (let entry = 1; entry < count; ++entry) {
            if (entries.isFolder(entry))
                continue;
            const extension = entries.extension(entry);
            const sum = sums.get(extension);
            if (sum === undefined) {
                sums.set(extension, {extension, size: size[entry], files: 1});
            } else {
                sum.size += size[entry];
                ++sum.files;
            }
        }
        this.entries = entries;
        this.sums = [...sums.values()].sort((a, b) =>
            b.size - a.size || b.files - a.files || nameOrder.compare(a.extension, b.extension));
        const coloured = this.sums.filter(({extension, size: bytes}) => extension !== "" && bytes > 0).slice(0, Colours);
        this.numbers = new Map(coloured.map(({extension}, i) => [extension, i + 1]));
    }

    of(entry) {
        return this.ofExtension(this.entries.extension(entry));
    }

    ofExtension(extension) {
        return this.numbers.get(extension) ?? 0;
    }
}

function bar(part, whole) {
    const outer = element("span", "bar");
    const inner = element("span");
    inner.style.width = `${whole === 0 ? 0 : 100 * part / whole}%`;
    outer.append(inner);
    return outer;
}

function addCells(body, ...contents) {
    const row = element("tr");
    for (const {className = "", content} of contents) {
        const cell = element("td", className);
        cell.append(...content);
        row.append(cell);
    }
    body.append(row);
}

function showExtensions(kinds) {
    const {size, files} = kinds.entries;
    const listed = kinds.sums.slice(0, ListedExtensions);
    const rest = kinds.sums.slice(ListedExtensions);
    if (rest.length > 0)
        listed.push({
            title: countText(rest.length, "other", "others"),
            size: rest.reduce((sum, each) => sum + each.size, 0),
            files: rest.reduce((sum, each) => sum + each.files, 0),
        });
    const largest = Math.max(...listed.map(each => each.size), 0);
    for (const sum of listed) {
        const title = sum.title ?? (sum.extension === "" ? "without" : "." + sum.extension);
        const kind = sum.title === undefined ? kinds.ofExtension(sum.extension) : 0;
        const name = element(sum.extension ? "bdi" : "i", "", title);
        addCells(byId("extension-sizes"),
            {className: "name", content: [element("span", `swatch kind${kind}`), name]},
            {className: "size number", content: [bar(sum.size, largest), element("span", "amount", sizeText(sum.size))]},
            {className: "number", content: [shareText(sum.size, size[0])]},
            {className: "number", content: [numberText(sum.files)]});
    }
    byId("extensions").hidden = files[0] === 0;
}

// Returns the files with the most bytes, the largest first.
function largestFiles(entries) {
    const {count, size} = entries;
    const largest = [];
    for (let entry = 1; entry < count; ++entry) {
        if (entries.isFolder(entry) || size[entry] === 0)
            continue;
        if (largest.length === LargestFiles && size[entry] <= size[largest[LargestFiles - 1]])
            continue;
        const place = largest.findIndex(other => size[other] < size[entry]);
        largest.splice(place === -1 ? largest.length : place, 0, entry);
        largest.length = Math.min(largest.length, LargestFiles);
    }
    return largest;
}

// opened is called with a file whose name is clicked.
function showLargest(kinds, opened) {
    const {entries} = kinds;
    const files = largestFiles(entries);
    for (const entry of files) {
        const button = element("button", "link");
        button.type = "button";
        button.title = attributeText(entries.pathText(entry));
        button.append(element("bdi", "", entries.name(entry)));
        button.addEventListener("click", () => opened(entry));
        const folder = element("bdi", "", entries.pathText(entries.parent[entry]));
        folder.title = attributeText(folder.textContent);
        addCells(byId("largest-files"),
            {className: "name", content: [element("span", `swatch kind${kinds.of(entry)}`), button]},
            {className: "size number", content: [bar(entries.size[entry], entries.size[files[0]]),
                element("span", "amount", sizeText(entries.size[entry]))]},
            {content: [timeText(entries.modified[entry])]},
            {className: "path", content: [folder]});
    }
    byId("largest").hidden = files.length === 0;
}
