// The entries of the list, read from the data of the page into one column for each property. Entry 0 is the listed
// folder itself; the others follow in the order of the list, so that a folder precedes what it contains.

const NameSeparator = "\b";

const FolderFlag = 1;
const UnreadableFlag = 2;

// Reads a column of numbers: base 36, a comma after each.
class NumberReader {
    constructor(text) {
        this.text = text;
        this.at = 0;
    }

    // Returns the next number, or NoTime if its place is empty.
    next() {
        const Comma = 44, Minus = 45, LastDigit = 57, LetterA = 97;
        const text = this.text;
        let code = text.charCodeAt(this.at++);
        if (code === Comma)
            return NoTime;
        const negative = code === Minus;
        if (negative)
            code = text.charCodeAt(this.at++);
        let value = 0;
        while (code !== Comma) {
            value = value * 36 + code - (code <= LastDigit ? LastDigit - 9 : LetterA - 10);
            code = text.charCodeAt(this.at++);
        }
        return negative ? -value : value;
    }
}

class Entries {
    // Takes the description of the list and its blocks, as ReportWriter.h describes them.
    constructor(list, blocks) {
        const count = blocks.reduce((sum, block) => sum + block.rows, 1);
        this.list = list;
        this.count = count;
        this.blockRows = list.blockRows;
        this.names = blocks.map(block => block.names);
        this.nameStart = new Int32Array(count);  // in the names of its block
        this.parent = new Int32Array(count);
        this.depth = new Uint16Array(count);
        this.flags = new Uint8Array(count);
        this.size = new Float64Array(count);
        this.modified = new Float64Array(count);  // seconds since 1970, or NoTime
        this.created = new Float64Array(count);
        this.files = new Uint32Array(count);  // anywhere below
        this.folders = new Uint32Array(count);
        this.modified[0] = this.created[0] = NoTime;
        this.flags[0] = FolderFlag;
        let next = 1;
        const nesting = [0];
        for (const block of blocks) {
            this.readTree(block, next, nesting);
            this.readColumns(block, next);
            next += block.rows;
        }
        this.sumUp();
        this.gatherKids();
    }

    // Reads which entries are folders, and their parents. The last of nesting is the current folder.
    readTree(block, next, nesting) {
        const sizes = new NumberReader(block.sizes);
        for (const token of block.tree.match(/[([\])]|[0-9]+/g) ?? []) {
            const parent = nesting[nesting.length - 1];
            if (token === ")") {
                nesting.pop();
            } else if (token === "(" || token === "[") {
                this.parent[next] = parent;
                this.depth[next] = nesting.length;
                this.flags[next] = token === "(" ? FolderFlag : FolderFlag | UnreadableFlag;
                nesting.push(next++);
            } else {
                for (let files = Number(token); files > 0; --files) {
                    this.parent[next] = parent;
                    this.depth[next] = nesting.length;
                    this.size[next++] = sizes.next();
                }
            }
        }
    }

    readColumns(block, next) {
        const modified = new NumberReader(block.modified);
        const created = new NumberReader(block.created);
        let lastModified = 0;
        let nameStart = 0;
        for (const end = next + block.rows; next < end; ++next) {
            this.nameStart[next] = nameStart;
            nameStart = block.names.indexOf(NameSeparator, nameStart) + 1;
            const sinceLast = modified.next();
            if (sinceLast !== NoTime)
                lastModified += sinceLast;
            this.modified[next] = sinceLast === NoTime ? NoTime : lastModified;
            const sinceModified = created.next();
            this.created[next] = sinceModified + (sinceLast === NoTime ? 0 : lastModified);
        }
    }

    sumUp() {
        this.unreadable = 0;
        for (let entry = this.count - 1; entry > 0; --entry) {
            const parent = this.parent[entry];
            this.size[parent] += this.size[entry];
            this.files[parent] += this.files[entry];
            this.folders[parent] += this.folders[entry];
            ++(this.isFolder(entry) ? this.folders : this.files)[parent];
            if (this.isUnreadable(entry))
                ++this.unreadable;
        }
    }

    // Places what a folder contains directly together, in the order of the list.
    gatherKids() {
        this.firstKid = new Int32Array(this.count + 1);
        this.kids = new Int32Array(this.count - 1);
        for (let entry = 1; entry < this.count; ++entry)
            ++this.firstKid[this.parent[entry] + 1];
        for (let entry = 0; entry < this.count; ++entry)
            this.firstKid[entry + 1] += this.firstKid[entry];
        const next = this.firstKid.slice();
        for (let entry = 1; entry < this.count; ++entry)
            this.kids[next[this.parent[entry]]++] = entry;
    }

    isFolder(entry) {
        return (this.flags[entry] & FolderFlag) !== 0;
    }

    isUnreadable(entry) {
        return (this.flags[entry] & UnreadableFlag) !== 0;
    }

    // Returns a view of what a folder contains directly, which may be sorted in place.
    kidsOf(folder) {
        return this.kids.subarray(this.firstKid[folder], this.firstKid[folder + 1]);
    }

    hasKids(folder) {
        return this.firstKid[folder] < this.firstKid[folder + 1];
    }

    blockOf(entry) {
        return Math.floor((entry - 1) / this.blockRows);
    }

    name(entry) {
        if (entry === 0)
            return this.list.root;
        const block = this.blockOf(entry);
        const isLast = entry + 1 === this.count || this.blockOf(entry + 1) !== block;
        return this.names[block].slice(this.nameStart[entry], isLast ? undefined : this.nameStart[entry + 1] - 1);
    }

    // Returns the entries from directly below the listed folder to the entry itself.
    pathOf(entry) {
        const path = [];
        for (; entry !== 0; entry = this.parent[entry])
            path.push(entry);
        return path.reverse();
    }

    // Returns the path below the listed folder.
    pathText(entry) {
        return this.pathOf(entry).map(part => this.name(part)).join("\\");
    }

    // Returns the extension in small letters, or an empty text. A dot at the begin of a name does not start one, nor
    // does one directly after the dot that does.
    extension(entry) {
        const name = this.name(entry);
        let start = 0;
        for (let i = 1; i < name.length; ++i)
            if (name[i] === ".")
                start = ++i;
        return start === 0 ? "" : name.slice(start).toLowerCase();
    }

    // Calls found for each entry whose name contains the text in any case, in the order of the list.
    search(text, found) {
        if (text.includes(NameSeparator))
            return;
        const pattern = searchPattern(text, "giu");
        this.names.forEach((names, block) => {
            let entry = block * this.blockRows + 1;
            const end = Math.min(entry + this.blockRows, this.count);
            pattern.lastIndex = 0;
            for (let match = pattern.exec(names); match !== null; match = pattern.exec(names)) {
                while (entry + 1 < end && this.nameStart[entry + 1] <= match.index)
                    ++entry;
                found(entry);
                if (++entry === end)
                    break;
                pattern.lastIndex = this.nameStart[entry];
            }
        });
    }
}

// Returns a regular expression for the text itself.
function searchPattern(text, flags) {
    return new RegExp(text.replace(/[\\^$.*+?()[\]{}|]/g, "\\$&"), flags);
}

// Reads the data of the page and removes it from there, since it takes as much memory again.
function readEntries() {
    const read = data => {
        const value = JSON.parse(data.textContent);
        data.remove();
        return value;
    };
    const list = read(document.querySelector("script.list"));
    return new Entries(list, Array.from(document.querySelectorAll("script.block"), read));
}
