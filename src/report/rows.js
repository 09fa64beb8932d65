// Which rows the table has, and in which order: what is in open folders, sorted within each folder; during a search
// the entries found and the folders around them.

const Found = 1;
const HasFound = 2;  // somewhere below

const nameOrder = new Intl.Collator("en", {numeric: true});

class Rows {
    constructor(entries) {
        this.entries = entries;
        this.list = new Int32Array(entries.count - 1);  // the entries of the rows
        this.count = 0;
        this.place = new Int32Array(entries.count);  // of a row among those of its folder, from 1
        this.shown = new Int32Array(entries.count);  // of a folder: how many rows are directly in it
        this.opened = new Uint8Array(entries.count);
        this.order = {column: "list", descending: false};
        this.orders = 0;                              // how many orders there were
        this.sorted = new Int32Array(entries.count);  // of a folder: by which of them its kids are sorted
        this.endSearch();
    }

    // Orders within each folder by the name or by a column of the entries that has numbers; "list" is the order of the
    // list. By name, folders come first.
    sortBy(column, descending) {
        this.order = {column, descending};
        ++this.orders;
        this.update();
    }

    // Shows what has the text in its name, and the folders around it, opened. Returns how many were found.
    search(text) {
        const {count, parent} = this.entries;
        const marks = new Uint8Array(count);
        let found = 0;
        this.entries.search(text, entry => {
            ++found;
            marks[entry] |= Found;
            for (let folder = parent[entry]; (marks[folder] & HasFound) === 0; folder = parent[folder])
                marks[folder] |= HasFound;
        });
        this.marks = marks;
        this.openedInSearch = marks.map(mark => mark & HasFound);
        this.searched = searchPattern(text, "iu");
        this.update();
        return found;
    }

    endSearch() {
        this.marks = null;
        this.openedInSearch = null;
        this.searched = null;
        this.update();
    }

    isOpen(entry) {
        return (this.openedInSearch ?? this.opened)[entry] !== 0;
    }

    setOpen(folder, open) {
        (this.openedInSearch ?? this.opened)[folder] = open ? 1 : 0;
        this.update();
    }

    setAllOpen(open) {
        const {count} = this.entries;
        const opened = this.openedInSearch ?? this.opened;
        for (let entry = 0; entry < count; ++entry)
            opened[entry] = open && this.entries.isFolder(entry) ? 1 : 0;
        this.update();
    }

    // Opens the folders around an entry, so that it has a row. Returns whether a search had to be ended for it.
    reveal(entry) {
        const folders = this.entries.pathOf(entry).slice(0, -1);
        const endsSearch = this.marks !== null && !this.isShown(entry);
        if (endsSearch)
            this.marks = this.openedInSearch = this.searched = null;
        for (const folder of folders)
            (this.openedInSearch ?? this.opened)[folder] = 1;
        this.update();
        return endsSearch;
    }

    // Returns the number of the entry's row from 0, or -1.
    indexOf(entry) {
        return this.list.subarray(0, this.count).indexOf(entry);
    }

    // Whether the search shows the entry once the folders around it are open.
    isShown(entry) {
        const {parent} = this.entries;
        for (; entry !== 0; entry = parent[entry])
            if (this.isFiltered(parent[entry]) && this.marks[entry] === 0)
                return false;
        return true;
    }

    update() {
        const outer = [];
        let kids = this.shownKids(0);
        let next = 0;
        this.count = 0;
        for (;;) {
            if (next === kids.length) {
                if (outer.length === 0)
                    return;
                ({kids, next} = outer.pop());
                continue;
            }
            const entry = kids[next++];
            this.list[this.count++] = entry;
            this.place[entry] = next;
            if (this.isOpen(entry) && this.entries.hasKids(entry)) {
                outer.push({kids, next});
                kids = this.shownKids(entry);
                next = 0;
            }
        }
    }

    // Whether the search shows only some of what a folder contains. If nothing was found in it, then it or a folder
    // around it was, and all is shown.
    isFiltered(folder) {
        return this.marks !== null && (folder === 0 || (this.marks[folder] & HasFound) !== 0);
    }

    shownKids(folder) {
        const kids = this.sortedKids(folder);
        const shown = this.isFiltered(folder) ? kids.filter(entry => this.marks[entry] !== 0) : kids;
        this.shown[folder] = shown.length;
        return shown;
    }

    sortedKids(folder) {
        const kids = this.entries.kidsOf(folder);
        if (this.sorted[folder] !== this.orders) {
            this.sort(kids);
            this.sorted[folder] = this.orders;
        }
        return kids;
    }

    sort(kids) {
        const {entries} = this;
        const {column, descending} = this.order;
        const sign = descending ? -1 : 1;
        if (column === "list") {
            kids.sort();
        } else if (column === "name") {
            const named = Array.from(kids, entry => ({
                entry, name: entries.name(entry), isFolder: entries.isFolder(entry)}));
            named.sort((a, b) => b.isFolder - a.isFolder || sign * nameOrder.compare(a.name, b.name) ||
                a.entry - b.entry);
            named.forEach(({entry}, i) => kids[i] = entry);
        } else {
            const values = entries[column];
            kids.sort((a, b) =>
                values[a] < values[b] ? -sign : values[a] > values[b] ? sign : a - b);
        }
    }
}
