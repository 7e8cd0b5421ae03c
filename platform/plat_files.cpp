// Memory-mapped files over mmap, and folder listings. A file of zero bytes is not
// mapped (Linux refuses to) but is still a file: it comes back as an empty view.
#include "platform/plat.h"
#include <algorithm>
#include <filesystem>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

static unsigned char empty_view[1] = {0};

unsigned char* plat_map_file(const char* path, size_t* size)
{
	*size = 0;
	int fd = open(path, O_RDONLY);
	if (fd < 0) return nullptr;
	struct stat st;
	if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) { close(fd); return nullptr; }
	if (st.st_size == 0) { close(fd); return empty_view; }
	void* p = mmap(nullptr, (size_t)st.st_size, PROT_READ, MAP_SHARED, fd, 0);
	close(fd);   // the mapping keeps the file open
	if (p == MAP_FAILED) return (unsigned char*)-1;
	*size = (size_t)st.st_size;
	return (unsigned char*)p;
}

void plat_unmap_file(unsigned char* begin, size_t size)
{
	if (begin && begin != empty_view && size) munmap(begin, size);
}

std::vector<std::string> plat_list_folders(const char* path)
{
	std::vector<std::string> out;
	std::error_code ec;
	for (std::filesystem::directory_iterator it(path, ec), end; !ec && it != end; it.increment(ec))
		if (it->is_directory(ec)) out.push_back(it->path().filename().string());
	std::sort(out.begin(), out.end());
	return out;
}

std::vector<plat_entry> plat_list_entries(const char* path)
{
	std::vector<plat_entry> out;
	std::error_code ec;
	for (std::filesystem::directory_iterator it(path, ec), end; !ec && it != end; it.increment(ec))
		out.push_back({it->path().filename().string(), it->is_directory(ec)});
	return out;
}
